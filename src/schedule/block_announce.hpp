#pragma once

#include "schedule/schedule.hpp"

/// Replaces the items of each announced block by one item, so that listings show the block and not
/// its pieces. A block with "block" is always announced as one item. A block with "items" never is.
/// Any other block is when it contains only default items. Items around the block are cut to make
/// room. Always true.
///
/// Erases and inserts items: no iterator into the schedule stays valid.
bool block_announce_subst(Schedule& schedule);
