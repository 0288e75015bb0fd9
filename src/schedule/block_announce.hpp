#pragma once

#include "schedule/schedule.hpp"

/// Puts one item in the place of each announced block, so that listings show the block and not
/// its pieces. A block that asks for it ("block") is always announced as one, a block that asks
/// for its items ("items") never, any other when nothing but default items is in it. What
/// surrounds the block is cut to make room. Always true.
///
/// Erases and inserts items: no iterator into the schedule survives a call.
bool block_announce_subst(Schedule& schedule);
