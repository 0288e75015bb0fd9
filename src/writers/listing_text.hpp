#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "writers/metadata_map.hpp"

// Texts of the listing formats.

/// A free-text field of a comma-separated listing (RFC 4180): in double quotes, with quotes doubled
/// and line feeds replaced by blanks. An empty text stays empty.
std::string csv_quote(std::string_view text);

/// Removes the spaces and tabs at both ends.
void trim_blanks(std::string& text);

/// The value of a name, which may be empty. Nothing when the item has no such name.
std::optional<std::string> find_value(const MetadataMap& metadata, std::string_view name);

/// The value of the first of these names that the item has. Empty when it has none of them.
template <typename... Names>
std::string first_value(const MetadataMap& metadata, const Names&... names) {
  std::optional<std::string> value;
  static_cast<void>(((value = find_value(metadata, names)).has_value() || ...));
  return value.value_or(std::string());
}

/// Makes a title from a file name: without an extension of at most three letters, and with blanks
/// for quotes, backslashes and underscores.
std::string title_of_file(std::string_view path);

/// The title of the programme or of the item. If it is blank, a title made from the file name.
std::string listing_title(const MetadataMap& metadata, std::string_view path);

/// Whether the value of a flag begins with 1, T or Y, in upper or lower case.
bool is_yes(std::string_view value);
