#include "schedule/schedule_file_type.hpp"

#include <string_view>

#include "platform/syntax/schedule_types.hpp"
#include "platform/system/activity.hpp"

bool is_schedule_file(const MetadataSet& set) {
  std::string file_type;
  for_each_entry(set, [&](const metadata_v4_entry& entry) {
    if (is_whole(entry) && entry.name == std::string_view("file type") &&
        group_name(set, entry) == nullptr) {
      file_type = entry.value;
    }
  });
  return find_schedule_type_of_mime_type(file_type) != nullptr;
}

bool is_schedule_file(const std::string& path, LaterUse later_use) {
  if (path.empty()) {
    return false;
  }
  const Activity activity("reading the metadata of", path.c_str());
  const FileContext context = bind_file_context(path.c_str());
  if (context == nullptr) {
    return false;
  }
  if (later_use == LaterUse::nothing && metadata_v4_context_read_file_type != nullptr) {
    const char* type = metadata_v4_context_read_file_type(context.get());
    return type != nullptr && find_schedule_type_of_mime_type(type) != nullptr;
  }
  return is_schedule_file(read_metadata_set(context));
}
