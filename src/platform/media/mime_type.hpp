#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/media/media_source.hpp"

/// The MIME type of a file, by its content. Schedule files and MPEG transport streams
/// are recognised here. For other files the first 4 KiB decide (media_type_database.hpp). Nothing
/// when the file cannot be read.
std::optional<std::string> detect_mime_type(const MediaSource& source);

/// The MIME type of a schedule file, from the first 64 KiB of its content. Empty when the content
/// is not a schedule. A type line before the first section decides; otherwise the first defaults
/// section with a known name. Items alone make a weekly schedule.
std::string_view sniff_schedule(std::string_view content);

/// Whether content begins with packets of an MPEG transport stream (ISO/IEC 13818-1).
bool is_transport_stream(std::string_view content);
