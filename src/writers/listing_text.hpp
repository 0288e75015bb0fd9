#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "writers/metadata_map.hpp"

// Texts of the listing formats.

/// A free-text field of a comma-separated listing (RFC 4180): in double quotes, with quotes doubled
/// and line feeds turned into blanks. An empty text stays empty.
std::string csv_quote(std::string_view text);

/// Removes the spaces and tabs at both ends.
void trim_blanks(std::string& text);

/// The value of a name, if the item has one; it may be empty.
std::optional<std::string> find_value(const MetadataMap& metadata, std::string_view name);

/// The value of the first of these names that the item has, else empty.
template <typename... Names>
std::string first_value(const MetadataMap& metadata, const Names&... names) {
  std::optional<std::string> value;
  static_cast<void>(((value = find_value(metadata, names)).has_value() || ...));
  return value.value_or(std::string());
}

/// A title made of a file's name: without its extension of at most three letters, and with blanks
/// for quotes, backslashes and underscores.
std::string title_of_file(std::string_view path);

/// The programme's or the item's title or, when that is blank, one made from its file name.
std::string listing_title(const MetadataMap& metadata, std::string_view path);

/// Whether a flag's value begins with a 1, a T or a Y, in either case.
bool is_yes(std::string_view value);
