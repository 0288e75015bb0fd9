#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Whether the machine can read this encoding.
bool is_known_encoding(const std::string& encoding);

/// The text as UTF-8 without a byte order mark. A byte order mark decides the encoding; without one
/// it is `encoding`, or UTF-8 when that is empty. Nothing when the bytes are not valid in it; the
/// text before the first wrong byte is then in `valid`.
std::optional<std::string> text_as_utf_8(std::string_view bytes, const std::string& encoding,
                                         std::string& valid);
