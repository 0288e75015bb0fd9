#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// What a column of a table says of its rows.
enum class TableColumn {
  kind,
  day,
  date,
  start,
  end,
  duration,
  item,
  label,
  block,
  event_id,
  item_duration,
  announce,
};

struct ColumnName {
  TableColumn column;
  std::string_view name;      ///< as an exported table and --columns write it
  std::string_view synonyms;  ///< folded words, separated by commas
};

/// All columns, in the order of an exported table.
std::span<const ColumnName> column_names();

std::string_view name_of(TableColumn column);

/// The column that a header names, in one of the languages that are known.
std::optional<TableColumn> find_column(std::string_view header);

/// What a bare number in a column of durations counts, as its header says: "duration (min)".
struct NumberUnit {
  std::string_view header;  ///< without the unit
  int seconds = 0;          ///< 0: the header names no unit
};
NumberUnit number_unit_of(std::string_view folded_header);

/// The kind of a row.
enum class RowKind { item, block, day_default, global_default, type };

/// The kind that the cell names; an empty cell is an item. Nothing when it names none.
std::optional<RowKind> find_row_kind(std::string_view cell);

/// The name of the kind in an exported table.
std::string_view name_of(RowKind kind);

/// The name in a sidecar for what a column's header names: "title" for "Titel".
std::string metadata_name_of(std::string_view header);

/// Whether that is the name of metadata that is known in four languages, such as "title".
bool is_metadata_name(std::string_view name);
