#include "writers/metadata_map.hpp"

#include <utility>

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
