#include "metadata/play_log.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <boost/json.hpp>
#include <cstdio>
#include <limits>
#include <string_view>
#include <utility>

#include "platform/syntax/json_text.hpp"
#include "platform/syntax/text.hpp"
#include "platform/system/line_reader.hpp"

namespace {

namespace json = boost::json;

constexpr const char* file_name = "play.log";
constexpr const char* new_file_name = "play.log.tmp";
constexpr size_t longest_piece = 32768;
constexpr mode_t file_mode = 0644;

json::parse_options parse_options() {
  json::parse_options options;
  options.max_depth = 200;
  options.allow_invalid_utf8 = true;  // metadata is passed on byte for byte
  return options;
}

/// Truncated toward zero and limited to the range of the type.
int64_t to_timestamp(double number) {
  constexpr double limit = 9223372036854775808.0;  // 2 to the 63rd
  if (number >= limit) {
    return std::numeric_limits<int64_t>::max();
  }
  if (number < -limit) {
    return std::numeric_limits<int64_t>::min();
  }
  return static_cast<int64_t>(number);
}

int64_t timestamp_of(const json::value* value) {
  if (value == nullptr) {
    return 0;
  }
  switch (value->kind()) {
    case json::kind::int64:
      return value->get_int64();
    case json::kind::uint64:
      return to_timestamp(static_cast<double>(value->get_uint64()));
    case json::kind::double_:
      return to_timestamp(value->get_double());
    default:
      return 0;
  }
}

PlayLogEntry entry_of(const json::object& line) {
  PlayLogEntry entry;
  const json::value* path = line.if_contains("path");
  if (path != nullptr && path->is_string()) {
    entry.path = path->get_string();
  }
  const json::value* metadata = line.if_contains("metadata");
  if (metadata != nullptr && metadata->is_object()) {
    for (const auto& [name, value] : metadata->get_object()) {
      if (value.is_string()) {
        entry.metadata.emplace(name, value.get_string());
      }
    }
  }
  return entry;
}

void read_line(std::string_view line, PlayLog& play_log,
               const std::function<bool(int64_t)>& is_wanted) {
  json::error_code error;
  const json::value value =
      json::parse(with_lone_surrogates_as_bytes(line), error, {}, parse_options());
  if (error) {
    std::fprintf(stderr, "JSON parse error: '%s'\n", error.message().c_str());
    return;
  }
  // A value that is not an object counts as an object without members.
  const json::object object = value.is_object() ? value.get_object() : json::object();
  const int64_t timestamp = timestamp_of(object.if_contains("timestamp"));
  if (is_wanted(timestamp)) {
    play_log.insert_or_assign(timestamp, entry_of(object));
  }
}

std::string line_of(int64_t timestamp, const PlayLogEntry& entry) {
  std::string line = "{\"metadata\": {";
  const char* separator = "";
  for (const auto& [name, value] : entry.metadata) {
    line += separator;
    append_json_string(line, name);
    line += ": ";
    append_json_string(line, value);
    separator = ", ";
  }
  line += "}, \"path\": ";
  append_json_string(line, entry.path);
  line += ", \"timestamp\": " + std::to_string(timestamp) + "}\n";
  return line;
}

std::string text_of(const PlayLog& play_log) {
  std::string text;
  for (const auto& [timestamp, entry] : play_log) {
    text += line_of(timestamp, entry);
  }
  return text;
}

/// Writes the text and syncs it to the disk, so that a full disk is noticed here.
bool write_to_disk(FileDescriptor file, std::string_view text) {
  return write_fully(file.get(), text) && fsync(file.get()) == 0 && ::close(file.release()) == 0;
}

}  // namespace

void read_play_log(const metadata_v4_context* context, PlayLog& play_log) {
  read_play_log(context, play_log, [](int64_t) { return true; });
}

void read_play_log(const metadata_v4_context* context, PlayLog& play_log,
                   const std::function<bool(int64_t)>& is_wanted) {
  if (context == nullptr || context->directory < 0) {
    return;
  }
  FileDescriptor opened = open_optional_file(context->directory, file_name);
  if (!opened.is_open()) {
    return;
  }
  LineReader file(std::move(opened), longest_piece);
  std::string_view line;
  while (file.read(line)) {
    chomp(line);
    if (!line.empty()) {
      read_line(line, play_log, is_wanted);
    }
  }
}

void write_play_log(const metadata_v4_context* context, const PlayLog& play_log) {
  if (context == nullptr || context->directory < 0) {
    return;
  }
  const std::string text = text_of(play_log);
  FileDescriptor file(openat(context->directory, new_file_name,
                             O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, file_mode));
  if (!file.is_open()) {
    return;
  }
  if (!write_to_disk(std::move(file), text) ||
      renameat(context->directory, new_file_name, context->directory, file_name) != 0) {
    unlinkat(context->directory, new_file_name, 0);
  }
}
