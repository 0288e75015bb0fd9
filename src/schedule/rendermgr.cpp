#include "schedule/rendermgr.hpp"

#include <fcntl.h>

#include <cstring>
#include <string_view>
#include <utility>

#include "platform/syntax/text.hpp"
#include "platform/system/line_reader.hpp"
#include "platform/system/messages.hpp"

namespace {

constexpr const char* rendermgr_directory = "/mnt/main/tv/rendermgr/";
constexpr size_t longest_rendermgr_line = 1023;

}  // namespace

std::string rendermgr_path_of_channel(int32_t channel) {
  return rendermgr_directory + ("channel" + std::to_string(channel));
}

std::optional<std::string> read_rendermgr(const std::string& path) {
  FileDescriptor opened = open_regular_file(AT_FDCWD, path.c_str(), Links::refused);
  if (!opened.is_open()) {
    return std::nullopt;
  }
  LineReader file(std::move(opened), longest_rendermgr_line);
  std::string schedule_path;
  std::string_view line;
  while (file.read(line)) {
    chomp(line);
    const std::optional<NameValue> pair = divide_name_equ_value_pair(line);
    if (pair && pair->name == "item") {
      schedule_path = pair->value;
    }
  }
  if (file.error() != 0) {
    print_warning(Warning::cut_short, "WARNING: Rendermgr file %s, cannot be read further, %s\n",
                  path.c_str(), std::strerror(file.error()));
  }
  return schedule_path;
}
