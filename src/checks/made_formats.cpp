#include "checks/made_formats.hpp"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr auto members = std::to_array<std::pair<std::string_view, bool MadeFormats::*>>({
    {"html", &MadeFormats::html},
    {"xml", &MadeFormats::xml},
    {"json", &MadeFormats::json},
    {"xmltv", &MadeFormats::xmltv},
    {"rovi", &MadeFormats::rovi},
    {"gracenote", &MadeFormats::gracenote},
});

}  // namespace

bool read_made_formats(std::string_view names, MadeFormats& formats) {
  for (const auto& [name, member] : members) {
    formats.*member = false;
  }
  for (bool is_last = false; !is_last;) {
    const std::string_view name = names.substr(0, names.find(','));
    const auto* found =
        std::ranges::find(members, name, &std::pair<std::string_view, bool MadeFormats::*>::first);
    if (found == members.end()) {
      return false;
    }
    formats.*(found->second) = true;
    is_last = name.size() == names.size();
    names.remove_prefix(is_last ? name.size() : name.size() + 1);
  }
  return true;
}
