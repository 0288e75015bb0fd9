#include "writers/metadata_map.hpp"

#include <utility>

#include "platform/syntax/text.hpp"

void MetadataCollector::add(std::string name, const std::string& value) {
  std::string& stored = map[name];
  if (name == previous_name) {
    stored += '\n';
    stored += value;
  } else {
    stored = value;
  }
  previous_name = std::move(name);
}

MetadataMap listing_metadata(const MetadataSet& set) {
  MetadataCollector collector;
  for_each_entry(set, [&](const metadata_v4_entry& entry) {
    if (is_whole(entry)) {
      collector.add(lower_case(entry.name), entry.value);
    }
  });
  return std::move(collector.map);
}
