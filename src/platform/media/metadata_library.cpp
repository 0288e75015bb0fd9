// Implements platform/metadata_v4.h for plain files.

#include <fcntl.h>
#include <unistd.h>

#include <functional>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/media/file_metadata.hpp"
#include "platform/media/sidecar.hpp"
#include "platform/metadata_v4.h"
#include "platform/syntax/text.hpp"
#include "platform/system/file.hpp"
#include "platform/system/messages.hpp"

namespace {

/// An open directory. A descriptor that is not open means that the directory cannot be opened.
using Directory = std::shared_ptr<const FileDescriptor>;

/// What the run knows of one path. A schedule airs the same clip hundreds of times. Each path is
/// looked up once in a table and read once from the disk.
struct KnownFile {
  std::string_view path;
  std::string name;
  std::weak_ptr<const FileDescriptor> directory;
  bool is_no_schedule = false;  ///< all that is known before it is read
  bool is_read = false;
  std::shared_ptr<const FileMetadata> metadata;  ///< null after reading: no metadata
};

/// Allows searching a table for a text without making a std::string.
struct HashText {
  using is_transparent = void;
  size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

template <typename Value>
using TextTable = std::unordered_map<std::string, Value, HashText, std::equal_to<>>;

struct Cache {
  TextTable<Directory> directories;
  TextTable<KnownFile> files;
};

/// Handles that are open at the same time. A process may have many more.
constexpr size_t most_directories = 64;

Cache& cache() {
  static Cache& instance = *new Cache();  // the end of the process frees it faster
  return instance;
}

/// The directory part of a path, or "." for a plain file name.
std::string_view directory_of(std::string_view path) {
  const size_t slash = path.rfind('/');
  if (slash == std::string_view::npos) {
    return ".";
  }
  return slash == 0 ? "/" : path.substr(0, slash);
}

/// The files of one directory share a handle.
Directory open_directory(std::string_view path) {
  auto& directories = cache().directories;
  const auto known = directories.find(path);
  if (known != directories.end()) {
    return known->second;
  }
  if (directories.size() >= most_directories) {
    directories.clear();
  }
  const std::string name(path);
  auto directory = std::make_shared<const FileDescriptor>(
      ::open(name.c_str(), O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC));
  if (!directory->is_open()) {
    fail_run_for_shortage("Unable to open %s: %s", name.c_str());
  }
  directories.emplace(name, directory);
  return directory;
}

KnownFile& known_file(std::string_view path) {
  auto& files = cache().files;
  const auto known = files.find(path);
  if (known != files.end()) {
    return known->second;
  }
  auto& [key, file] = *files.try_emplace(std::string(path)).first;
  file.path = key;
  file.name = file_name_of(path);
  return file;
}

struct FileContext : metadata_v4_context {
  FileContext() : metadata_v4_context{METADATA_V4_READ_WHILE_BINDING, -1} {}

  KnownFile* file = nullptr;  ///< owned by the cache, which is never destroyed
  Directory opened;
};

/// A set either shares the metadata of a file or holds entries that were added to it.
struct MetadataSet : metadata_v4_metadata_context {
  MetadataSet() : metadata_v4_metadata_context{0} {}

  std::shared_ptr<const FileMetadata> file;
  std::string_view path;  ///< of that file
  std::vector<std::unique_ptr<const MetadataEntry>> added;
  metadata_v4_entry entry_read{};
  std::string source_read;
};

const std::shared_ptr<const FileMetadata>& metadata_of(const FileContext& context) {
  KnownFile& file = *context.file;
  if (!file.is_read) {
    file.metadata = read_file_metadata(context.opened->get(), file.name);
    file.is_read = true;
  }
  return file.metadata;
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
  return set.file ? &set.file->entries[position] : set.added[position].get();
}

const char* last_file_type(const FileMetadata& metadata) {
  const char* type = nullptr;
  for (const MetadataEntry& entry : metadata.entries) {
    if (entry.group == no_group && entry.name == "file type") {
      type = entry.value.c_str();
    }
  }
  return type;
}

std::string_view text_of(const char* text, size_t length) {
  return length == 0 ? std::string_view(text) : std::string_view(text, length);
}

}  // namespace

metadata_v4_context* metadata_v4_context_create(void) {
  return new (std::nothrow) FileContext();
}

int metadata_v4_context_set_file_location(metadata_v4_context* context, const char* path) {
  FileContext& own = *as_file_context(context);
  const std::string_view location = path;
  if (location.empty() || location.back() == '/') {
    return -1;
  }
  KnownFile& file = known_file(location);
  own.opened = file.directory.lock();
  if (!own.opened) {
    own.opened = open_directory(directory_of(location));
    file.directory = own.opened;
  }
  own.directory = own.opened->get();
  if (!own.opened->is_open()) {
    return -1;
  }
  own.file = &file;
  if ((own.options & METADATA_V4_READ_WHILE_BINDING) != 0) {
    metadata_of(own);
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
  added.push_back(std::make_unique<const MetadataEntry>(MetadataEntry{
      std::string(text_of(name, name_length)), std::string(text_of(value, value_length)), group}));
  set->entry_count = static_cast<int32_t>(added.size());
  return 0;
}

metadata_v4_metadata_context* metadata_v4_metadata_context_from_file(metadata_v4_context* context,
                                                                     int /*flags*/,
                                                                     void* /*reserved*/) {
  const FileContext& own = *as_file_context(context);
  const auto& file = metadata_of(own);
  if (!file) {
    return nullptr;
  }
  auto* set = new (std::nothrow) MetadataSet();
  if (set != nullptr) {
    set->file = file;
    set->path = own.file->path;
    set->entry_count = static_cast<int32_t>(file->entries.size());
  }
  return set;
}

const char* metadata_v4_context_read_file_type(metadata_v4_context* context) {
  const FileContext& own = *as_file_context(context);
  KnownFile& file = *own.file;
  if (!file.is_read && !file.is_no_schedule) {
    TypeReading reading = read_file_for_type(own.opened->get(), file.name);
    file.is_no_schedule = reading.is_no_schedule;
    file.is_read = !reading.is_no_schedule;
    file.metadata = std::move(reading.metadata);
  }
  if (!file.is_read) {
    return "application/octet-stream";
  }
  return file.metadata ? last_file_type(*file.metadata) : nullptr;
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

const char* metadata_v4_metadata_context_read_entry_source(metadata_v4_metadata_context* set,
                                                           int32_t index) {
  MetadataSet& own = *as_metadata_set(set);
  if (!own.file || entry_at(own, index) == nullptr) {
    return nullptr;
  }
  own.source_read = own.path;
  if (static_cast<size_t>(index) >= own.file->own_entries) {
    own.source_read += sidecar_suffix;
  }
  return own.source_read.c_str();
}

metadata_v4_metadata_context* metadata_v4_metadata_context_destroy(
    metadata_v4_metadata_context* set) {
  delete as_metadata_set(set);
  return nullptr;
}
