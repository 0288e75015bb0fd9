#include "writers/genre.hpp"

#include <gtest/gtest.h>

namespace {

std::string category(std::string text) {
  return genre_display_name(normalize_genre(text));
}

TEST(Genre, WholeWordsOfAnyCaseAreKnown) {
  EXPECT_EQ(category("Children's"), "Children's");
  EXPECT_EQ(category("CHILDRENS"), "Children's");
  EXPECT_EQ(category("children"), "Children's");
  EXPECT_EQ(category("lifestyle"), "Lifestyle");
  EXPECT_EQ(category("MOVIE"), "Movie");
  EXPECT_EQ(category("Music"), "Music");
  EXPECT_EQ(category("news"), "News");
  EXPECT_EQ(category("Sports"), "Sports");
}

TEST(Genre, EverythingElseIsOther) {
  EXPECT_EQ(category("sport"), "Other");
  EXPECT_EQ(category("Sports "), "Other");
  EXPECT_EQ(category(" news"), "Other");
  EXPECT_EQ(category("movies"), "Other");
  EXPECT_EQ(category(""), "Other");
}

TEST(Genre, ValuesIndexTheDisplayNames) {
  EXPECT_EQ(genre_display_name(static_cast<ListingGenre>(2)), "Music");
  EXPECT_EQ(genre_display_name(static_cast<ListingGenre>(3)), "Movie");
  EXPECT_EQ(genre_display_name(static_cast<ListingGenre>(6)), "Other");
  EXPECT_EQ(genre_display_name(static_cast<ListingGenre>(7)), "Other");
  EXPECT_EQ(genre_display_name(static_cast<ListingGenre>(-1)), "Other");
}

TEST(Genre, TextsAreLowerCasedInPlace) {
  std::string genre = "NeWs";
  normalize_genre(genre);
  EXPECT_EQ(genre, "news");
  std::string subcategory = "DRAMA";
  EXPECT_FALSE(normalize_subcategory(subcategory));
  EXPECT_EQ(subcategory, "drama");
  EXPECT_EQ(subcategory_display_name(), "Other");
}

}  // namespace
