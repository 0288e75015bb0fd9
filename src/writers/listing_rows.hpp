#pragma once

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "metadata/item_metadata.hpp"
#include "platform/calendar.hpp"
#include "platform/invariant.hpp"
#include "platform/text.hpp"
#include "schedule/airing_expansion.hpp"
#include "schedule/schedule.hpp"
#include "writers/item_walk.hpp"
#include "writers/metadata_map.hpp"

// The rows of the listing formats: one for each airing and calendar day, cleaned up as listing
// services want them. A Row is a record with `start` and `end` in calendar time and texts of its
// own.

/// Seconds that a row must last, and the widest gap that is closed.
inline constexpr time_t shortest_row = 300;

/// The days that a listing covers: from the start of today to the end of the day 21 days ahead.
struct ListingHorizon {
  explicit ListingHorizon(time_t now)
      : start(calendar_start_of_day(now)), end(calendar_end_of_day(now + 21 * 86400)) {}

  template <typename Row>
  bool shows(const Row& row) const {
    return row.end >= start && row.start < end;
  }

  time_t start;
  time_t end;
};

/// An item's metadata with all names in lower case.
inline MetadataMap listing_metadata(metadata_v4_metadata_context* set) {
  MetadataCollector collector;
  for_each_entry(set, [&](const metadata_v4_entry& entry) {
    if (entry.name != nullptr && entry.value != nullptr) {
      collector.add(lower_case(entry.name), entry.value);
    }
  });
  return std::move(collector.map);
}

/// The rows of all announced items in the report window, in airing order: for each piece of an
/// item what make_row(schedule, piece, metadata) makes of it.
template <typename MakeRow>
auto collect_rows(Schedule& schedule, time_t window_start, time_t window_end, MakeRow make_row) {
  std::vector<decltype(make_row(schedule, ScheduleItem(), MetadataMap()))> rows;
  ItemMetadataSlots slots;
  walk_items(schedule, window_start, window_end, [&](const ScheduleItem& item, time_t) {
    const ItemMetadata metadata = read_item_metadata(slots, item);
    if (metadata.announce >= 1) {
      const MetadataMap names = listing_metadata(slots.set);
      ScheduleItem rest = item;
      for (const ScheduleItem& piece : expand_airing(schedule, rest)) {
        rows.push_back(make_row(schedule, piece, names));
      }
    }
    slots.release();
  });
  return rows;
}

template <typename Row>
time_t lasts(const Row& row) {
  return row.end - row.start;
}

/// Rounds both times to the nearest whole minute, half a minute up.
template <typename Row>
void round_to_minutes(std::vector<Row>& rows) {
  for (Row& row : rows) {
    row.start = calendar_start_of_minute(row.start + 30);
    row.end = calendar_start_of_minute(row.end + 30);
  }
}

/// Folds runs of short rows that follow each other without a gap into one row each, until it is
/// long enough; `joined` names the texts of which the row keeps all.
template <typename Row>
void merge_short_rows(std::vector<Row>& rows, std::span<std::string Row::*const> joined) {
  if (rows.empty()) {
    return;
  }
  size_t pos = 0;  // the row that may take in the next; the rows behind it have been moved up
  for (size_t next = 1; next < rows.size(); ++next) {
    INVARIANT(pos < rows.size(), "pos < entries.size()");
    Row& row = rows[pos];
    Row& other = rows[next];
    if (lasts(row) >= shortest_row || lasts(other) >= shortest_row || row.end != other.start) {
      ++pos;
      if (pos != next) {
        rows[pos] = std::move(other);
      }
      continue;
    }
    row.end = other.end;
    for (std::string Row::*const text : joined) {
      if (!(other.*text).empty() && other.*text != row.*text) {
        row.*text += " / " + other.*text;
      }
    }
  }
  rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(pos) + 1, rows.end());
}

/// Lets short rows run to the shortest length a row may have, or to the next row.
template <typename Row>
void stretch_short_rows(std::vector<Row>& rows) {
  for (size_t i = 0; i + 1 < rows.size(); ++i) {
    if (lasts(rows[i]) < shortest_row) {
      rows[i].end = std::min(rows[i].start + shortest_row, rows[i + 1].start);
    }
  }
}

/// Moves rows behind those before them and closes small gaps and overlaps; the last row stays.
template <typename Row>
void close_gaps(std::vector<Row>& rows) {
  time_t latest_end = 0;
  for (size_t i = 0; i + 1 < rows.size(); ++i) {
    Row& row = rows[i];
    const Row& next = rows[i + 1];
    row.start = std::max(row.start, latest_end);
    row.end = std::max(row.end, row.start);
    if (row.end + shortest_row >= next.start) {
      row.end = next.start;
    }
    latest_end = std::max(latest_end, row.end);
  }
}

/// Whole minutes, no rows of less than five, no small gaps and no overlaps.
template <typename Row>
void clean_rows(std::vector<Row>& rows, std::span<std::string Row::*const> joined) {
  round_to_minutes(rows);
  std::erase_if(rows, [](const Row& row) { return row.start == row.end; });
  merge_short_rows(rows, joined);
  stretch_short_rows(rows);
  std::erase_if(rows, [](const Row& row) { return lasts(row) < shortest_row; });
  close_gaps(rows);
}
