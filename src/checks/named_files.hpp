#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "checks/finding.hpp"
#include "checks/made_formats.hpp"
#include "checks/schedule_source.hpp"
#include "platform/metadata_handles.hpp"

// The files that a schedule names: their paths, their metadata, and schedules among them.

/// Why a path is probably not the one of a file.
struct PathComplaint {
  FindingKind kind;
  size_t offset;  ///< in the path
  std::string text;
  std::string instead;  ///< the path to write; empty when only the reader knows it
};

/// What seems wrong with the path: a comment, quotes, the form of another system. Some files really
/// have such names.
std::optional<PathComplaint> complaint_about_path(std::string_view path);

/// Reports such a path at that place. With `with_media`, a path that exists is not reported.
void check_path(const std::string& path, Place place, bool with_media, FileFindings& found);

/// The names in folders that were looked at, by the folder's path and the name in lower case.
using FolderNames = std::map<std::string, std::map<std::string, std::string>>;

/// The path of a file that differs from the path only in the case of its letters, or nothing.
std::string path_in_other_case(const std::string& path, FolderNames& known);

/// The XML reference, such as "&amp;", at the start of the text, or nothing.
std::string_view reference_at(std::string_view text);

/// Checks whether the metadata of the file fits into the XML document, which escapes only the
/// values of metadata, and never control characters, and whether it is UTF-8, as JSON needs it
/// too. Each problem is reported once for each file.
void check_metadata(const std::string& path, const MetadataSet& set, Place place,
                    const MadeFormats& formats, FileFindings& found);

/// Whether the listings find a title in the metadata. They do not show labels.
bool has_listed_title(const MetadataSet& set);

/// What is known of the schedules that schedules name.
struct NamedSchedules {
  std::vector<FileId> above;             ///< those that lead to the one that is read now
  std::map<FileId, size_t> levels = {};  ///< with the level at which each was met
  std::string without_unit = {};         ///< path of the last one that was found without a unit
  bool can_be_patched_in = true;         ///< none leads back to itself, and each has a unit
};

/// Checks a schedule that the checked one names, and those that it leads to.
void check_named_schedule(const std::string& path, FileId id, Place place,
                          NamedSchedules& schedules, FileFindings& found);
