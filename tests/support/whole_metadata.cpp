// Takes the place of the metadata library's function in a program that links this file: the type of
// a file is told from all of its metadata.

#include <string>

#include "platform/metadata_handles.hpp"

const char* metadata_v4_context_read_file_type(metadata_v4_context* context) {
  static std::string type;
  const MetadataSet set(metadata_v4_metadata_context_from_file(context, 0, nullptr));
  bool is_known = false;
  for_each_entry(set, [&](const metadata_v4_entry& entry) {
    if (is_whole(entry) && entry.name == std::string("file type") &&
        group_name(set, entry) == nullptr) {
      type = entry.value;
      is_known = true;
    }
  });
  return is_known ? type.c_str() : nullptr;
}
