#include "platform/media/embedded_tags.hpp"

#include <fileref.h>
#include <mp4file.h>
#include <sys/stat.h>
#include <tpropertymap.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/media/helper_process.hpp"
#include "platform/media/media_stream.hpp"
#include "platform/media/packed_tags.hpp"
#include "platform/syntax/text.hpp"

namespace {

/// Tags that the writers know by another name.
constexpr std::array<std::pair<std::string_view, std::string_view>, 4> renamed_tags = {{
    {"TVSHOW", "program"},
    {"SUBTITLE", "episode"},
    {"TVSEASON", "season"},
    {"PODCASTDESC", "description"},
}};
constexpr const char* mp4_long_description = "ldes";

constexpr size_t kib = 1024;
constexpr size_t mib = 1024 * kib;

/// The tags of almost every file are read with this budget, in the run's own process. For any file,
/// the library then uses no more than about twenty megabytes. It also cannot go deeper into nested
/// boxes than the reads allow.
constexpr ReadBudget small_budget = {128 * kib, 16 * mib, 2048, 2048, false};

/// For all other files, which are read in a helper process.
constexpr ReadBudget large_budget = {48 * mib, 48 * mib, 1000000, 8000000, true};
constexpr size_t helper_memory = 64 * mib;

/// Processor time for files whose tags the run gives up. Each file may take a tenth of the rest,
/// one second at first. However many such files there are, the run keeps its own time.
constexpr std::chrono::microseconds time_for_lost_files = std::chrono::seconds(10);

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
  // An MP4 file without a "moov" has no tags. The library would look for its properties there.
  if (!file.isValid() || file.tag() == nullptr) {
    return tags;
  }
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

/// Whether the library takes the extension for that of an MP4 file. Such a file may have another
/// beginning.
bool is_mp4_extension(const std::string& extension) {
  constexpr std::array<std::string_view, 9> names = {"mp4", "m4a", "m4v", "m4b", "m4p",
                                                     "m4r", "3g2", "aax", "aaxc"};
  return std::ranges::find(names, extension) != names.end();
}

/// Whether a file begins like Windows media. Such a file states the number of its attributes, and
/// the library goes through as many.
bool is_asf(std::string_view head) {
  return head.starts_with("\x30\x26\xb2\x75\x8e\x66\xcf\x11");
}

std::string extension_of(const std::string& name) {
  const size_t dot = name.rfind('.');
  return dot != std::string::npos ? lower_case(name.substr(dot + 1)) : std::string();
}

/// Whether the library takes the extension for that of a music module. Such a file states the
/// number of its instruments and samples, and the library goes through as many, however short the
/// file is.
bool is_module(const std::string& extension) {
  constexpr std::array<std::string_view, 7> modules = {"mod", "module", "nst", "wow",
                                                       "s3m", "it",     "xm"};
  return std::ranges::find(modules, extension) != modules.end();
}

TagsRead result_of(const MediaStream& stream, Tags tags) {
  if (stream.has_failed()) {
    return {TagsOutcome::failed, {}, {}};
  }
  if (stream.is_spent()) {
    return {TagsOutcome::spent, {}, {}};
  }
  return {TagsOutcome::read, std::move(tags), stream.left_out()};
}

TagsRead read_tags(MediaSource& source, const std::string& name, const ReadBudget& budget) {
  constexpr bool read_audio_properties = false;
  const std::string extension = extension_of(name);
  // Without a name, the library goes by the content, which cannot mislead it.
  for (const std::string& name_to_go_by : {std::string(), name}) {
    if (!name_to_go_by.empty()) {
      if (!TagLib::FileRef::defaultFileExtensions().contains(extension)) {
        break;
      }
      if (!budget.risks && is_module(extension)) {
        return {TagsOutcome::spent, {}, {}};
      }
    }
    MediaStream stream(source, name_to_go_by, budget);
    if (!budget.risks && is_asf(source.head())) {
      return {TagsOutcome::spent, {}, {}};
    }
    // Without this check the library would try many other formats first.
    if (is_mp4_head(source.head()) || (!name_to_go_by.empty() && is_mp4_extension(extension))) {
      stream.show_mp4_parts();
      TagLib::MP4::File file(&stream, read_audio_properties);
      return result_of(stream, tags_of(file));
    }
    const TagLib::FileRef file(&stream, read_audio_properties);
    if (file.file() != nullptr) {
      return result_of(stream, tags_of(*file.file()));
    }
    if (TagsRead none = result_of(stream, {}); none.outcome != TagsOutcome::read) {
      return none;
    }
  }
  return {};
}

/// The tags of a file of which only the descriptor is known.
TagsRead read_all_tags(int fd, const std::string& name) {
  struct stat status = {};
  if (fstat(fd, &status) != 0) {
    return {TagsOutcome::failed, {}, {}};
  }
  MediaSource source(fd, status.st_size);
  return source.read_head() ? read_tags(source, name, large_budget)
                            : TagsRead{TagsOutcome::failed, {}, {}};
}

std::string answer_with_tags(int fd, const std::string& name) {
  TagsRead result = read_all_tags(fd, name);
  leave_out_largest(result, HelperProcess::longest_answer);
  return pack_tags(result);
}

TagsRead read_tags_in_helper(int fd, const std::string& name) {
  static HelperProcess helper(answer_with_tags, helper_memory);
  static std::chrono::microseconds time_left = time_for_lost_files;
  const std::chrono::microseconds time = time_left / 10;
  if (time < std::chrono::milliseconds(1)) {
    return {TagsOutcome::spent, {}, {}};
  }
  const std::optional<std::string> answer = helper.ask(fd, name, time);
  std::optional<TagsRead> result = answer ? unpack_tags(*answer) : std::nullopt;
  if (!result) {
    time_left -= time;
    return {TagsOutcome::spent, {}, {}};
  }
  return *std::move(result);
}

}  // namespace

std::optional<std::vector<MetadataEntry>> read_embedded_tags(MediaSource& source,
                                                             const std::string& name) {
  TagsRead result = read_tags(source, name, small_budget);
  if (result.outcome == TagsOutcome::spent) {
    result = read_tags_in_helper(source.fd(), name);
  }
  if (result.outcome == TagsOutcome::failed) {
    return std::nullopt;
  }
  std::vector<MetadataEntry> entries;
  if (result.outcome == TagsOutcome::spent) {
    std::fprintf(stderr, "WARNING: The tags of '%s' take too much to read\n", name.c_str());
    return entries;
  }
  if (!result.left_out.empty()) {
    std::fprintf(stderr, "WARNING: Tags of '%s' are too large and left out: %s\n", name.c_str(),
                 result.left_out.c_str());
  }
  for (const auto& [tag, value] : result.tags) {
    entries.push_back({tag, value, no_group});
  }
  return entries;
}
