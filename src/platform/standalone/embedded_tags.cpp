#include "platform/standalone/embedded_tags.hpp"

#include <fileref.h>
#include <mp4file.h>
#include <tpropertymap.h>

#include <array>
#include <map>
#include <string_view>
#include <utility>

#include "platform/standalone/media_stream.hpp"
#include "platform/text.hpp"

namespace {

/// Tags that the schedule's writers know under names of their own.
constexpr std::array<std::pair<std::string_view, std::string_view>, 4> renamed_tags = {{
    {"TVSHOW", "program"},
    {"SUBTITLE", "episode"},
    {"TVSEASON", "season"},
    {"PODCASTDESC", "description"},
}};
constexpr const char* mp4_long_description = "ldes";

using Tags = std::multimap<std::string, std::string>;

std::string name_of_tag(const std::string& tag) {
  for (const auto& [original, name] : renamed_tags) {
    if (tag == original) {
      return std::string(name);
    }
  }
  return lower_case(tag);
}

void add_values(Tags& tags, const std::string& name, const TagLib::StringList& values) {
  for (const TagLib::String& value : values) {
    tags.emplace(name, value.to8Bit(true));
  }
}

Tags tags_of(TagLib::File& file) {
  Tags tags;
  for (const auto& [tag, values] : file.properties()) {
    add_values(tags, name_of_tag(tag.to8Bit(true)), values);
  }
  if (auto* mp4 = dynamic_cast<TagLib::MP4::File*>(&file)) {
    if (mp4->tag() != nullptr && mp4->tag()->contains(mp4_long_description)) {
      add_values(tags, "summary", mp4->tag()->item(mp4_long_description).toStringList());
    }
  }
  return tags;
}

/// Whether a file begins as an ISO base media file does (ISO/IEC 14496-12). Most media are such,
/// and the library would try many other formats first.
bool is_mp4(MediaStream& stream) {
  constexpr unsigned head_size = 8;
  const TagLib::ByteVector head = stream.readBlock(head_size);
  stream.seek(0, TagLib::IOStream::Beginning);
  return head.size() == head_size && head.containsAt("ftyp", 4);
}

bool has_known_extension(const std::string& name) {
  const size_t dot = name.rfind('.');
  return dot != std::string::npos &&
         TagLib::FileRef::defaultFileExtensions().contains(lower_case(name.substr(dot + 1)));
}

std::optional<Tags> unless_failed(const MediaStream& stream, Tags tags) {
  return stream.has_failed() ? std::nullopt : std::optional(std::move(tags));
}

/// Nothing when a read failed.
std::optional<Tags> read_tags(int fd, const std::string& name) {
  constexpr bool read_audio_properties = false;
  // The stream without a name is taken by its content, which cannot be wrong.
  for (const std::string& name_to_go_by : {std::string(), name}) {
    if (!name_to_go_by.empty() && !has_known_extension(name)) {
      break;
    }
    MediaStream stream(fd, name_to_go_by);
    if (is_mp4(stream)) {
      TagLib::MP4::File file(&stream, read_audio_properties);
      return unless_failed(stream, tags_of(file));
    }
    const TagLib::FileRef file(&stream, read_audio_properties);
    if (file.file() != nullptr || stream.has_failed()) {
      return unless_failed(stream, file.file() != nullptr ? tags_of(*file.file()) : Tags());
    }
  }
  return Tags();
}

}  // namespace

std::optional<std::vector<MetadataEntry>> read_embedded_tags(int fd, const std::string& name) {
  const std::optional<Tags> tags = read_tags(fd, name);
  if (!tags) {
    return std::nullopt;
  }
  std::vector<MetadataEntry> entries;
  for (const auto& [tag, value] : *tags) {
    entries.push_back({tag, value, no_group});
  }
  return entries;
}
