#include "platform/media/media_type_database.hpp"

#include <magic.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "platform/system/messages.hpp"

extern unsigned char media_type_rules[];  // media_types.magic, compiled by file(1) for the build
extern const size_t media_type_rules_size;

namespace {

constexpr const char* unknown_type = "application/octet-stream";

/// A database and its options. It is never closed: the end of the process frees it, and closing
/// libmagic takes as long as reading a file.
struct Database {
  magic_set* magic;  ///< null: could not be loaded
  int flags;
};

magic_set* open_magic(int flags) {
  magic_set* magic = magic_open(flags);
  if (magic == nullptr) {
    fail_run("Unable to open libmagic: %s", std::strerror(errno));
  }
  return magic;
}

/// Built-in tests that come before the rules (tar archives, JSON and others) are used as with the
/// large database. Those that come after the rules are left to it.
Database open_small() {
  constexpr int flags = MAGIC_MIME_TYPE | MAGIC_NO_CHECK_TEXT;
  magic_set* magic = open_magic(flags);
  void* rules = media_type_rules;
  size_t size = media_type_rules_size;
  if (magic_load_buffers(magic, &rules, &size, 1) != 0) {
    magic_close(magic);
    magic = nullptr;
  }
  return {magic, flags};
}

/// False means that the large database is missing. A database named by MAGIC may hold anything.
bool knows_usual_types(magic_set* magic) {
  constexpr std::string_view picture("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\1\0\0\0\1\x8\0\0\0\0",
                                     29);
  const char* type = magic_buffer(magic, picture.data(), picture.size());
  return std::getenv("MAGIC") != nullptr ||
         (type != nullptr && type == std::string_view("image/png"));
}

Database open_large() {
  constexpr int flags = MAGIC_MIME_TYPE;
  magic_set* magic = open_magic(flags);
  const bool is_loaded = magic_load(magic, nullptr) == 0;
  const char* error = magic_error(magic);
  // If libmagic cannot open or map its database, it uses only the few rules of the machine's own
  // file and reports success.
  if (!is_loaded || error != nullptr || !knows_usual_types(magic)) {
    fail_run("Unable to load libmagic's database: %s",
             error != nullptr ? error : "it cannot be opened");
  }
  return {magic, flags};
}

/// Whether the head cannot be text in any encoding. libmagic would need many rules to find that
/// out. Only UTF-16 and UTF-32 texts have NUL bytes, and they begin with a byte order mark.
bool is_no_text(std::string_view head) {
  constexpr std::string_view long_mark("\0\0\xfe\xff", 4);
  return head.find('\0') != std::string_view::npos && !head.starts_with("\xff\xfe") &&
         !head.starts_with("\xfe\xff") && !head.starts_with(long_mark);
}

std::string_view ask(const Database& database, std::string_view head) {
  if (database.magic == nullptr) {
    return unknown_type;
  }
  magic_setflags(database.magic,
                 is_no_text(head) ? database.flags | MAGIC_NO_CHECK_ENCODING : database.flags);
  const char* type = magic_buffer(database.magic, head.data(), head.size());
  return type != nullptr ? type : unknown_type;
}

}  // namespace

std::string known_media_type(std::string_view head) {
  static const Database small = open_small();
  const std::string_view type = ask(small, head);
  return type != unknown_type ? std::string(type) : std::string();
}

std::string libmagic_type(std::string_view head) {
  static const Database large = open_large();
  return std::string(ask(large, head));
}
