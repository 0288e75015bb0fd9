#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

/// Takes a character off the text's front; nothing, with the text as it was, when it begins with no
/// UTF-8 (RFC 3629).
std::optional<uint32_t> take_utf_8(std::string_view& text);
