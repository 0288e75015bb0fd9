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

/// The nearest whole minute, half a minute up.
inline time_t rounded_to_minute(UnitClock& clock, time_t t) {
  const std::tm* tm = clock.breakdown(t + 30);
  return tm != nullptr ? t + 30 - tm->tm_sec : t + 30;
}

template <typename Row>
time_t lasts(const Row& row) {
  return row.end - row.start;
}

/// Folds a short row into the short row that it follows without a gap; `joined` names the texts of
/// which the row keeps both. False, with nothing changed, when the two stay apart.
template <typename Row>
bool fold_into(Row& row, const Row& next, std::span<std::string Row::*const> joined) {
  if (lasts(row) >= shortest_row || lasts(next) >= shortest_row || row.end != next.start) {
    return false;
  }
  row.end = next.end;
  for (std::string Row::*const text : joined) {
    if (!(next.*text).empty() && next.*text != row.*text) {
      row.*text += " / " + next.*text;
    }
  }
  return true;
}

/// The rows of all announced items in the report window, in airing order: for each piece of an
/// item what make_row(path, metadata) makes of it, with the piece's times rounded to whole minutes.
/// A piece that has no length then makes none, and runs of short rows become one each: a channel of
/// short clips has a hundred items for each of its rows.
template <typename Row>
std::vector<Row> collect_rows(Schedule& schedule, time_t window_start, time_t window_end,
                              Row (*make_row)(const std::string& path, const MetadataMap&),
                              std::span<std::string Row::*const> joined) {
  std::vector<Row> rows;
  UnitClock clock(schedule);
  ItemMetadataSlots slots;
  const auto add_row = [&](const std::string& path, uint64_t piece_start, uint64_t piece_end) {
    const time_t start = rounded_to_minute(clock, clock.time_of(piece_start));
    const time_t end = rounded_to_minute(clock, clock.time_of(piece_end));
    if (start != end) {
      Row row = make_row(path, listing_metadata(slots.set));
      row.start = start;
      row.end = end;
      if (rows.empty() || !fold_into(rows.back(), row, joined)) {
        rows.push_back(std::move(row));
      }
    }
  };
  const auto add_item = [&](const ScheduleItem& item, time_t /*start*/) {
    if (read_item_metadata(slots, item).announce >= 1) {
      uint64_t piece_start = item.start;
      for (const uint64_t cut : airing_cuts(clock, item)) {
        add_row(item.item, piece_start, cut);
        piece_start = cut;
      }
      add_row(item.item, piece_start, item.end);
    }
    slots.release();
  };
  walk_items(schedule, clock, window_start, window_end, add_item);
  return rows;
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

/// Makes of collected rows a listing without rows of less than five minutes, small gaps and
/// overlaps.
template <typename Row>
void clean_rows(std::vector<Row>& rows) {
  stretch_short_rows(rows);
  std::erase_if(rows, [](const Row& row) { return lasts(row) < shortest_row; });
  close_gaps(rows);
}
