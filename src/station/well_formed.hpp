#pragma once

#include <cstdint>
#include <string>

/// Why no reader could parse the document in this part of a file: a document in XML that is not
/// well-formed, or one in JSON that is not UTF-8. Empty if there is no reason, and for the other
/// formats. `format` is its name. Also says when the file cannot be read.
std::string complaint_about_document(const std::string& format, int file, uint64_t offset,
                                     uint64_t bytes);
