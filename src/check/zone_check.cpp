#include "check/zone_check.hpp"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "platform/syntax/text.hpp"

namespace {

/// Whether it is written out, as "EST5EDT,M3.2.0,M11.1.0" (POSIX): a name and an offset.
bool is_written_out(std::string_view zone) {
  const auto name_end =
      zone.starts_with('<')
          ? std::min(zone.find('>'), zone.size() - 1) + 1
          : static_cast<size_t>(
                std::ranges::find_if_not(
                    zone, [](char c) { return to_lower(c) >= 'a' && to_lower(c) <= 'z'; }) -
                zone.begin());
  const std::string_view rest = zone.substr(name_end);
  return name_end >= 3 && !rest.empty() &&
         (is_digit(rest.front()) || rest.front() == '+' || rest.front() == '-');
}

}  // namespace

std::vector<Report> check_zone() {
  const char* set = std::getenv("TZ");
  std::string_view zone = set != nullptr ? set : "";
  if (zone.starts_with(':')) {
    zone.remove_prefix(1);
  }
  if (zone.empty() || is_written_out(zone)) {
    return {};
  }
  const char* folder = std::getenv("TZDIR");
  const std::string path = zone.front() == '/'
                               ? std::string(zone)
                               : std::string(folder != nullptr ? folder : "/usr/share/zoneinfo") +
                                     "/" + std::string(zone);
  if (access(path.c_str(), R_OK) == 0) {
    return {};
  }
  return {{Finding::unknown_zone,
           {},
           "the machine knows no zone " + quoted(zone) + ": times would be those of UTC",
           {}}};
}
