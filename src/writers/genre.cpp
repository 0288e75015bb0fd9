#include "writers/genre.hpp"

#include <array>
#include <string_view>

#include "platform/syntax/text.hpp"

namespace {

struct Keyword {
  std::string_view text;
  ListingGenre genre;
};

constexpr std::array<Keyword, 8> keywords = {{
    {"children's", ListingGenre::Childrens},
    {"childrens", ListingGenre::Childrens},
    {"children", ListingGenre::Childrens},
    {"lifestyle", ListingGenre::Lifestyle},
    {"movie", ListingGenre::Movie},
    {"music", ListingGenre::Music},
    {"news", ListingGenre::News},
    {"sports", ListingGenre::Sports},
}};

// Indexed by ListingGenre.
constexpr std::array<const char*, 7> display_names = {"Children's", "Lifestyle", "Music", "Movie",
                                                      "News",       "Sports",    "Other"};

}  // namespace

ListingGenre normalize_genre(std::string& text) {
  text = lower_case(text);
  for (const Keyword& keyword : keywords) {
    if (text == keyword.text) {
      return keyword.genre;
    }
  }
  return ListingGenre::Other;
}

std::string genre_display_name(ListingGenre genre) {
  const auto index = static_cast<size_t>(genre);
  return index < display_names.size() ? display_names[index] : display_names.back();
}

boost::optional<int32_t> normalize_subcategory(std::string& text) {
  text = lower_case(text);
  return boost::none;
}

std::string subcategory_display_name() {
  return "Other";
}
