// The operations of platform/metadata_v4.h on plain files.

#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <deque>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/file.hpp"
#include "platform/metadata_v4.h"
#include "platform/standalone/file_metadata.hpp"

namespace {

/// An open directory, or the knowledge that it cannot be opened.
using Directory = std::shared_ptr<const FileDescriptor>;

/// What the run has read so far. A schedule airs the same clip hundreds of times, so each path is
/// read once, and the files of one directory share a handle on it.
struct Cache {
  std::unordered_map<std::string, Directory> directories;
  std::unordered_map<std::string, std::shared_ptr<const FileMetadata>> files;
};

/// Handles kept open at a time, well below what a process may have.
constexpr size_t most_directories = 64;

Cache& cache() {
  static Cache instance;
  return instance;
}

Directory open_directory(const std::string& path) {
  auto& directories = cache().directories;
  const auto known = directories.find(path);
  if (known != directories.end()) {
    return known->second;
  }
  if (directories.size() >= most_directories) {
    directories.clear();
  }
  auto directory = std::make_shared<const FileDescriptor>(
      ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC));
  directories.emplace(path, directory);
  return directory;
}

/// The directory part of a path: "." for a bare name.
std::string directory_of(std::string_view path) {
  const size_t slash = path.rfind('/');
  if (slash == std::string_view::npos) {
    return ".";
  }
  return slash == 0 ? "/" : std::string(path.substr(0, slash));
}

struct FileContext : metadata_v4_context {
  FileContext() : metadata_v4_context{METADATA_V4_READ_WHILE_BINDING, -1} {}

  std::string path;
  std::string name;
  Directory opened;
};

/// A set either shares what was read from a file or holds entries that were added to it.
struct MetadataSet : metadata_v4_metadata_context {
  MetadataSet() : metadata_v4_metadata_context{0} {}

  std::shared_ptr<const FileMetadata> file;
  std::deque<MetadataEntry> added;
  metadata_v4_entry entry_read{};
};

std::shared_ptr<const FileMetadata> metadata_of(const FileContext& context) {
  auto& files = cache().files;
  const auto known = files.find(context.path);
  if (known != files.end()) {
    return known->second;
  }
  auto metadata = read_file_metadata(context.opened->get(), context.name);
  files.emplace(context.path, metadata);
  return metadata;
}

FileContext* as_file_context(metadata_v4_context* context) {
  return static_cast<FileContext*>(context);
}

MetadataSet* as_metadata_set(metadata_v4_metadata_context* set) {
  return static_cast<MetadataSet*>(set);
}

const MetadataEntry* entry_at(const MetadataSet& set, int32_t index) {
  if (index < 0 || index >= set.entry_count) {
    return nullptr;
  }
  const auto position = static_cast<size_t>(index);
  return set.file ? &set.file->entries[position] : &set.added[position];
}

std::string_view text_of(const char* text, size_t length) {
  return length == 0 ? std::string_view(text) : std::string_view(text, length);
}

}  // namespace

metadata_v4_context* metadata_v4_context_create(void) {
  return new (std::nothrow) FileContext();
}

int metadata_v4_context_set_file_location(metadata_v4_context* context, const char* path) {
  FileContext& file = *as_file_context(context);
  const std::string_view location = path;
  if (location.empty() || location.back() == '/') {
    return -1;
  }
  file.opened = open_directory(directory_of(location));
  file.directory = file.opened->get();
  if (!file.opened->is_open()) {
    return -1;
  }
  file.path = location;
  file.name = location.substr(location.rfind('/') + 1);
  if ((file.options & METADATA_V4_READ_WHILE_BINDING) != 0) {
    metadata_of(file);
  }
  return 0;
}

metadata_v4_context* metadata_v4_context_destroy(metadata_v4_context* context) {
  delete as_file_context(context);
  return nullptr;
}

metadata_v4_metadata_context* metadata_v4_metadata_context_create(void) {
  return new (std::nothrow) MetadataSet();
}

int metadata_v4_metadata_context_add_name_value_pair(metadata_v4_metadata_context* set,
                                                     const char* name, size_t name_length,
                                                     const char* value, size_t value_length,
                                                     int32_t group) {
  auto& added = as_metadata_set(set)->added;
  added.push_back(
      {std::string(text_of(name, name_length)), std::string(text_of(value, value_length)), group});
  set->entry_count = static_cast<int32_t>(added.size());
  return 0;
}

metadata_v4_metadata_context* metadata_v4_metadata_context_from_file(metadata_v4_context* context,
                                                                     int /*flags*/,
                                                                     void* /*reserved*/) {
  const std::shared_ptr<const FileMetadata> file = metadata_of(*as_file_context(context));
  if (!file) {
    return nullptr;
  }
  auto* set = new (std::nothrow) MetadataSet();
  if (set != nullptr) {
    set->file = file;
    set->entry_count = static_cast<int32_t>(file->entries.size());
  }
  return set;
}

const metadata_v4_entry* metadata_v4_metadata_context_read_entry(metadata_v4_metadata_context* set,
                                                                 int32_t index) {
  MetadataSet& own = *as_metadata_set(set);
  const MetadataEntry* entry = entry_at(own, index);
  if (entry == nullptr) {
    return nullptr;
  }
  own.entry_read = {entry->name.c_str(), entry->value.c_str(), entry->group};
  return &own.entry_read;
}

const char* metadata_v4_metadata_context_read_group_name(metadata_v4_metadata_context* set,
                                                         int32_t group) {
  const MetadataSet& own = *as_metadata_set(set);
  if (!own.file || group < 0 || static_cast<size_t>(group) >= own.file->groups.size()) {
    return nullptr;
  }
  return own.file->groups[static_cast<size_t>(group)].c_str();
}

metadata_v4_metadata_context* metadata_v4_metadata_context_destroy(
    metadata_v4_metadata_context* set) {
  delete as_metadata_set(set);
  return nullptr;
}
