#include "completion/shells.hpp"

#include <algorithm>

bool has_offer(const ProgramInfo& program, Offer offer) {
  return program.operands == offer ||
         std::ranges::any_of(program.options,
                             [&](const OptionInfo& option) { return option.offer == offer; });
}

std::string filled(std::string text,
                   std::initializer_list<std::pair<std::string_view, std::string_view>> names) {
  for (const auto& [name, meaning] : names) {
    for (size_t at = 0; (at = text.find(name, at)) != std::string::npos; at += meaning.size()) {
      text.replace(at, name.size(), meaning);
    }
  }
  return text;
}
