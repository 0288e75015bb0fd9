// What the helper process answers, or would if what it read had taken it over.

#include "fuzz/fuzz_target.hpp"
#include "platform/media/packed_tags.hpp"

void run_target(std::string_view input) {
  const std::optional<TagsRead> result = unpack_tags(input);
  if (!result) {
    return;
  }
  size_t bytes = result->outcome == TagsOutcome::read ? 9 + result->left_out.size() : 1;
  for (const auto& [name, value] : result->tags) {
    bytes += 16 + name.size() + value.size();
  }
  require(bytes == input.size(), "every byte is accounted for");
  const std::optional<TagsRead> again = unpack_tags(pack_tags(*result));
  require(again.has_value(), "what was unpacked can be packed");
  require(again && again->outcome == result->outcome && again->tags == result->tags &&
              again->left_out == result->left_out,
          "and is the same then");
}
