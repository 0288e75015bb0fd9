#pragma once

#include <memory>
#include <vector>

#include "properties/random.hpp"
#include "schedule/schedule.hpp"

/// A schedule of a random type as the reader might leave it, without items: unit length, default
/// items and nothing else.
std::unique_ptr<Schedule> random_frame(Random& random);

/// Items that begin at the unit's edges, at midnights, at each other's ends or anywhere, and last
/// from nothing to beyond the unit; some are reversed, some have no end.
std::vector<ScheduleItem> random_items(Random& random, uint64_t unit_length);

/// The frame with the items in it; of two with one start the later stays.
std::unique_ptr<Schedule> with_items(const Schedule& frame, const std::vector<ScheduleItem>& items);

/// "start-end path" of each item, a default item with a star; of many default items the last few.
std::string listing_of(const Schedule& schedule);
