#include "writers/rendered_metadata.hpp"

namespace {

/// Keeps what is remembered within a few megabytes.
constexpr size_t most_files = 4096;
constexpr size_t longest_text = 2048;

}  // namespace

RenderedMetadata MetadataRenderer::of(const ScheduleItem& item) {
  const Rendering* rendering = &own_;
  const bool is_from_file = !item.is_block && item.metadata.empty();
  const auto known = is_from_file ? files_.find(item.item) : files_.end();
  if (known != files_.end()) {
    rendering = &known->second;
  } else {
    own_ = make_rendering(item);
    if (is_from_file && files_.size() < most_files && own_.text.size() <= longest_text) {
      rendering = &files_.emplace(item.item, own_).first->second;
    }
  }
  return {derive_announce(rendering->metadata, item.is_default, item), rendering->text};
}

MetadataRenderer::Rendering MetadataRenderer::make_rendering(const ScheduleItem& item) {
  Rendering rendering;
  ItemMetadataSlots slots;
  open_item_metadata(slots.set, slots.context, item.item.c_str(), item);
  extract_entries(rendering.metadata, slots.set);
  render_(rendering.text, slots.set);
  return rendering;
}
