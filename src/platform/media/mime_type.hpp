#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The MIME type of an open regular file, by its content: schedule files and MPEG transport streams
/// are known here, everything else by its first 4 KiB
/// (media_type_database.hpp).
/// Nothing when the file cannot be read.
std::optional<std::string> detect_mime_type(int fd);

/// The MIME type of a schedule file, given the first 64 KiB of its content; empty when the content
/// is no schedule. A type line before the first section tells the type, else the first defaults
/// section of a known name; items alone make a weekly schedule.
std::string_view sniff_schedule(std::string_view content);

/// Whether content begins with packets of an MPEG transport stream (ISO/IEC 13818-1).
bool is_transport_stream(std::string_view content);
