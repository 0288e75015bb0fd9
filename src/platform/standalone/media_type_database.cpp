#include "platform/standalone/media_type_database.hpp"

#include <magic.h>

extern unsigned char media_type_rules[];  // media_types.magic, compiled by file(1) for the build
extern const size_t media_type_rules_size;

namespace {

constexpr const char* unknown_type = "application/octet-stream";

/// A libmagic without a database. Taking it down again would cost as much as a file: the process's
/// end does it for nothing.
template <typename Load>
magic_set* open_magic(int flags, Load load) {
  magic_set* magic = magic_open(MAGIC_MIME_TYPE | flags);
  if (magic != nullptr && load(magic) != 0) {
    magic_close(magic);
    return nullptr;
  }
  return magic;
}

/// What comes before the rules (tar archives, JSON and the like) counts as it does for the large
/// database; what comes after them is left to that.
magic_set* load_small() {
  return open_magic(MAGIC_NO_CHECK_TEXT, [](magic_set* magic) {
    void* rules = media_type_rules;
    size_t size = media_type_rules_size;
    return magic_load_buffers(magic, &rules, &size, 1);
  });
}

magic_set* load_large() {
  return open_magic(MAGIC_NONE, [](magic_set* magic) { return magic_load(magic, nullptr); });
}

std::string_view ask(magic_set* magic, std::string_view head) {
  const char* type = magic != nullptr ? magic_buffer(magic, head.data(), head.size()) : nullptr;
  return type != nullptr ? type : unknown_type;
}

}  // namespace

std::string known_media_type(std::string_view head) {
  static magic_set* const small = load_small();
  const std::string_view type = ask(small, head);
  return type != unknown_type ? std::string(type) : std::string();
}

std::string libmagic_type(std::string_view head) {
  static magic_set* const large = load_large();
  return std::string(ask(large, head));
}
