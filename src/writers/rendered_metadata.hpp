#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "metadata/item_metadata.hpp"

/// What a writer prints of an item's metadata: the announce flag and the text that it made of the
/// metadata set.
struct RenderedMetadata {
  int32_t announce;
  const std::string& text;  ///< valid until the next item is asked for
};

/// Makes that text once for each media file: a schedule airs the same clip hundreds of times. Items
/// that aired, and blocks, have metadata of their own and are rendered one by one.
class MetadataRenderer {
 public:
  /// Appends the text of a set, which may be null.
  using Render = void (*)(std::string& out, metadata_v4_metadata_context* set);

  explicit MetadataRenderer(Render render) : render_(render) {}

  RenderedMetadata of(const ScheduleItem& item);

 private:
  struct Rendering {
    ItemMetadata metadata;  ///< as the file has it, before an item's own announce rules
    std::string text;
  };

  Rendering make_rendering(const ScheduleItem& item);

  Render render_;
  std::unordered_map<std::string, Rendering> files_;
  Rendering own_;  ///< of the last item that has its own
};
