#pragma once

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "metadata/item_metadata.hpp"
#include "platform/system/clock.hpp"
#include "platform/system/output.hpp"
#include "platform/time/calendar.hpp"
#include "schedule/airing_expansion.hpp"
#include "schedule/schedule.hpp"
#include "writers/append.hpp"
#include "writers/item_walk.hpp"
#include "writers/listing_text.hpp"
#include "writers/metadata_map.hpp"

// The rows of the listing formats: one for each airing and calendar day, cleaned up for the listing
// services. A Row is a record with `start` and `end` in calendar time and its own texts.

/// In seconds: the minimum length of a row, and the maximum gap that is closed.
inline constexpr time_t shortest_row = 300;

/// The days that a listing covers: from the start of today to the end of the day 21 days ahead.
struct ListingHorizon {
  explicit ListingHorizon(time_t now)
      : start(calendar_start_of_day(now)),
        end(calendar_end_of_day(now + 21 * time_t{seconds_per_day})) {}

  template <typename Row>
  bool shows(const Row& row) const {
    return row.end >= start && row.start < end;
  }

  time_t start;
  time_t end;
};

/// Rounds to the nearest whole minute; half a minute is rounded up.
inline time_t rounded_to_minute(UnitClock& clock, time_t t) {
  const std::tm* tm = clock.breakdown(t + 30);
  return tm != nullptr ? t + 30 - tm->tm_sec : t + 30;
}

template <typename Row>
time_t lasts(const Row& row) {
  return row.end - row.start;
}

/// A column: its header and the text of a row in it.
template <typename Row>
struct ListingColumn {
  const char* header;
  std::string (*text)(const Row& row);
};

template <typename Row>
using RowText = std::string Row::*;

/// The differences between the listings.
template <typename Row>
struct Listing {
  std::span<const ListingColumn<Row>> columns;
  std::string_view line_end;
  std::span<const RowText<Row>> joined_texts;  ///< texts that are joined when rows are folded
  /// Makes the row for a file with that metadata, without the times.
  Row (*make_row)(const std::string& path, const MetadataMap& metadata);
  void (*finish_row)(Row& row);  ///< called when the row's times are final; may be null
};

/// What the listing remembers of an item.
template <typename Row>
struct ListedItem {
  ItemMetadata metadata;
  Row row;  ///< without times
};

/// Folds the row of a short piece into the short row directly before it. False, with nothing
/// changed, when the two stay apart.
template <typename Row>
bool fold_into(Row& row, const Row& next, time_t start, time_t end, const Listing<Row>& listing) {
  if (lasts(row) >= shortest_row || end - start >= shortest_row || row.end != start) {
    return false;
  }
  row.end = end;
  for (const RowText<Row> text : listing.joined_texts) {
    if (!(next.*text).empty() && next.*text != row.*text) {
      row.*text += " / " + next.*text;
    }
  }
  return true;
}

/// The rows of all announced items in the report window, in airing order. There is one row for each
/// piece of an item, with its times rounded to whole minutes. A piece of length 0 makes no row. A
/// run of short rows becomes one row, because a channel of short clips has about a hundred items
/// for each row.
template <typename Row>
std::vector<Row> collect_rows(const Schedule& schedule, time_t window_start, time_t window_end,
                              const Listing<Row>& listing) {
  std::vector<Row> rows;
  UnitClock clock(schedule);
  MetadataPerFile<ListedItem<Row>> listed_per_file(
      [&listing](const std::string& path, const MetadataSet& set) {
        return ListedItem<Row>{extract_item_metadata(set),
                               listing.make_row(path, listing_metadata(set))};
      });
  const auto add_row = [&](const Row& timeless, uint64_t piece_start, uint64_t piece_end) {
    const time_t start = rounded_to_minute(clock, clock.time_of(piece_start));
    const time_t end = rounded_to_minute(clock, clock.time_of(piece_end));
    if (start != end && (rows.empty() || !fold_into(rows.back(), timeless, start, end, listing))) {
      rows.push_back(timeless);
      rows.back().start = start;
      rows.back().end = end;
    }
  };
  walk_items(schedule, clock, window_start, window_end, [&](const ScheduleItem& item, time_t) {
    const ListedItem<Row>& listed = listed_per_file.of(item);
    if (derive_announce(listed.metadata, item) >= 1) {
      uint64_t piece_start = item.start;
      for (const uint64_t cut : airing_cuts(clock, item)) {
        add_row(listed.row, piece_start, cut);
        piece_start = cut;
      }
      add_row(listed.row, piece_start, item.end);
    }
  });
  return rows;
}

/// Extends short rows to the minimum length, or to the next row if that comes first.
template <typename Row>
void stretch_short_rows(std::vector<Row>& rows) {
  for (size_t i = 0; i + 1 < rows.size(); ++i) {
    if (lasts(rows[i]) < shortest_row) {
      rows[i].end = std::min(rows[i].start + shortest_row, rows[i + 1].start);
    }
  }
}

/// Moves rows that overlap the row before them and closes small gaps. The last row stays.
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

/// Cleans up the collected rows. After this no row is shorter than five minutes, and there are no
/// small gaps or overlaps.
template <typename Row>
void clean_rows(std::vector<Row>& rows) {
  stretch_short_rows(rows);
  std::erase_if(rows, [](const Row& row) { return lasts(row) < shortest_row; });
  close_gaps(rows);
}

/// All rows of a listing, cleaned up, on any day.
template <typename Row>
std::vector<Row> listing_rows(const Schedule& schedule, time_t window_start, time_t window_end,
                              const Listing<Row>& listing) {
  std::vector<Row> rows = collect_rows(schedule, window_start, window_end, listing);
  clean_rows(rows);
  return rows;
}

/// Prints the announced items that start in the report window (calendar time): a header line, then
/// a line for each row from today to 21 days ahead.
template <typename Row>
void print_listing(const Schedule& schedule, time_t window_start, time_t window_end,
                   const Listing<Row>& listing) {
  const ListingHorizon horizon(current_time());
  std::vector<Row> rows = listing_rows(schedule, window_start, window_end, listing);
  std::string out;
  const auto append_line = [&](auto text_of) {
    const char* separator = "";
    for (const ListingColumn<Row>& column : listing.columns) {
      append(out, separator, text_of(column));
      separator = ",";
    }
    append(out, listing.line_end);
  };
  append_line([](const ListingColumn<Row>& column) { return column.header; });
  for (Row& row : rows) {
    if (horizon.shows(row)) {
      if (listing.finish_row != nullptr) {
        listing.finish_row(row);
      }
      append_line([&](const ListingColumn<Row>& column) { return column.text(row); });
      write_output_when_large(out);
    }
  }
  write_output(out);
}
