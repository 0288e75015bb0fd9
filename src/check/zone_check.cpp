#include "check/zone_check.hpp"

#include <cstdlib>
#include <string_view>

#include "platform/time/known_zone.hpp"

std::vector<Finding> check_zone() {
  const char* set = std::getenv("TZ");
  const std::string_view zone = set != nullptr ? set : "";
  if (zone.empty() || zone == ":" || is_known_zone(zone)) {
    return {};
  }
  return {{FindingKind::unknown_zone,
           {},
           "the machine knows no zone " + quoted(zone) + ": times would be those of UTC",
           {}}};
}
