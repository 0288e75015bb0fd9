#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/metadata_handles.hpp"

/// An item's metadata by name, in ascending order of the names; searched without making a text.
using MetadataMap = std::map<std::string, std::string, std::less<>>;

/// Collects entries in the order in which they are read.
struct MetadataCollector {
  MetadataMap map;
  std::string previous_name;

  /// Stores a value under its name. Entries of one name that follow each other become the lines of
  /// one value; a name that comes back later starts again.
  void add(std::string name, const std::string& value);
};

/// The metadata of a set (or null) as the listings look at it, with all names in lower case.
MetadataMap listing_metadata(const MetadataSet& set);
