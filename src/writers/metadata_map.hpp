#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/metadata_handles.hpp"

/// An item's metadata by name, in ascending order of the names. Searching it copies no text.
using MetadataMap = std::map<std::string, std::string, std::less<>>;

/// Collects entries in the order in which they are read.
struct MetadataCollector {
  MetadataMap map;
  std::string previous_name;

  /// Stores a value under its name. Consecutive entries of one name become the lines of one value.
  /// When a name comes again later, its old value is replaced.
  void add(std::string name, const std::string& value);
};

/// The metadata of a set, which may be null, for the listings: all names are in lower case.
MetadataMap listing_metadata(const MetadataSet& set);
