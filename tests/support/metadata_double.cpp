// A second metadata library. It does what the file "metadata-double" in the current directory says:
//
//   fail create-context | bind | create-set | from-file   the operation fails
//   group NAME                                            the next group
//   entry NAME VALUE GROUP                                the next entry; "-" is absent or no group
//   absent                                                the next entry cannot be read
//   file PATH                                             only this file has the entries below
//   hang                                                  no file is ever read to its end
//
// "_" in a name or value stands for a blank, "''" for an empty text.

#include <unistd.h>

#include <fstream>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "platform/metadata_v4.h"

namespace {

struct Entry {
  bool is_absent = false;
  std::optional<std::string> name;
  std::optional<std::string> value;
  int32_t group = -1;
  std::string path = {};  ///< of the only file that has it; empty: all files have it
};

struct Script {
  bool hangs = false;
  std::set<std::string> failing;
  std::vector<std::string> groups;
  std::vector<Entry> entries;
};

struct Context : metadata_v4_context {
  std::string path;
};

struct Set : metadata_v4_metadata_context {
  std::vector<Entry> entries;
  metadata_v4_entry read{};
};

std::optional<std::string> text_of(std::string word) {
  if (word == "-") {
    return std::nullopt;
  }
  if (word == "''") {
    return "";
  }
  for (char& c : word) {
    c = c == '_' ? ' ' : c;
  }
  return word;
}

Script read_script() {
  Script result;
  std::ifstream file("metadata-double");
  std::string line;
  std::string path;
  while (std::getline(file, line)) {
    std::istringstream words(line);
    std::string what;
    std::string first;
    std::string second;
    std::string group;
    words >> what >> first >> second >> group;
    if (what == "fail") {
      result.failing.insert(first);
    } else if (what == "group") {
      result.groups.push_back(first);
    } else if (what == "entry") {
      result.entries.push_back(
          {false, text_of(first), text_of(second), group == "-" ? -1 : std::stoi(group), path});
    } else if (what == "hang") {
      result.hangs = true;
    } else if (what == "absent") {
      result.entries.push_back({true, {}, {}, -1, path});
    } else if (what == "file") {
      path = first;
    }
  }
  return result;
}

const Script& script() {
  static const Script instance = read_script();
  return instance;
}

bool fails(const char* operation) {
  return script().failing.contains(operation);
}

const char* c_string(const std::optional<std::string>& text) {
  return text ? text->c_str() : nullptr;
}

}  // namespace

metadata_v4_context* metadata_v4_context_create() {
  return fails("create-context") ? nullptr : new Context{{METADATA_V4_READ_WHILE_BINDING, -1}, {}};
}

int metadata_v4_context_set_file_location(metadata_v4_context* context, const char* path) {
  static_cast<Context*>(context)->path = path;
  // The program promises to clear the bit before it binds.
  return fails("bind") || (context->options & METADATA_V4_READ_WHILE_BINDING) != 0 ? 1 : 0;
}

metadata_v4_context* metadata_v4_context_destroy(metadata_v4_context* context) {
  delete static_cast<Context*>(context);
  return nullptr;
}

metadata_v4_metadata_context* metadata_v4_metadata_context_create() {
  return fails("create-set") ? nullptr : new Set();
}

int metadata_v4_metadata_context_add_name_value_pair(metadata_v4_metadata_context* set,
                                                     const char* name, size_t name_length,
                                                     const char* value, size_t value_length,
                                                     int32_t group) {
  if (name_length != 0 || value_length != 0) {
    return 1;
  }
  auto* own = static_cast<Set*>(set);
  own->entries.push_back({false, name, value, group});
  ++own->entry_count;
  return 0;
}

metadata_v4_metadata_context* metadata_v4_metadata_context_from_file(metadata_v4_context* context,
                                                                     int flags, void* reserved) {
  if (fails("from-file") || context == nullptr || flags != 0 || reserved != nullptr) {
    return nullptr;
  }
  while (script().hangs) {
    pause();
  }
  auto* set = new Set();
  for (const Entry& entry : script().entries) {
    if (entry.path.empty() || entry.path == static_cast<Context*>(context)->path) {
      set->entries.push_back(entry);
    }
  }
  set->entry_count = static_cast<int32_t>(set->entries.size());
  return set;
}

const metadata_v4_entry* metadata_v4_metadata_context_read_entry(metadata_v4_metadata_context* set,
                                                                 int32_t index) {
  auto* own = static_cast<Set*>(set);
  const Entry& entry = own->entries.at(static_cast<size_t>(index));
  if (entry.is_absent) {
    return nullptr;
  }
  own->read = {c_string(entry.name), c_string(entry.value), entry.group};
  return &own->read;
}

const char* metadata_v4_metadata_context_read_group_name(metadata_v4_metadata_context* /*set*/,
                                                         int32_t group) {
  const auto& groups = script().groups;
  return group >= 0 && static_cast<size_t>(group) < groups.size()
             ? groups[static_cast<size_t>(group)].c_str()
             : nullptr;
}

metadata_v4_metadata_context* metadata_v4_metadata_context_destroy(
    metadata_v4_metadata_context* set) {
  delete static_cast<Set*>(set);
  return nullptr;
}
