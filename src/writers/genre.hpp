#pragma once

#include <boost/optional.hpp>
#include <cstdint>
#include <string>

// The categories of the Rovi listing.

enum class ListingGenre : int32_t {
  Childrens = 0,
  Lifestyle = 1,
  Music = 2,
  Movie = 3,
  News = 4,
  Sports = 5,
  Other = 6
};

struct RoviCategory {
  ListingGenre genre = ListingGenre::Other;
  boost::optional<int32_t> subcategory;  ///< always empty: the listing service recognises none
};

/// The genre with that name, in upper or lower case. Other for any other text. Changes the text to
/// lower case.
ListingGenre normalize_genre(std::string& text);

/// The word in the listing's Category column.
std::string genre_display_name(ListingGenre genre);

/// Always empty. Changes the text to lower case.
boost::optional<int32_t> normalize_subcategory(std::string& text);

/// The word in the listing's Sub Category column.
std::string subcategory_display_name();
