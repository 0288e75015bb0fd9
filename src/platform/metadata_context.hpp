#pragma once

#include "platform/metadata_v4.h"

/// Binds a new file context (or null) to the file at the path. False when that fails.
inline bool bind_context(metadata_v4_context* context, const char* path) {
  if (context == nullptr) {
    return false;
  }
  // Whether the file's metadata is needed shows only later: the play log may know better.
  context->options &= static_cast<uint8_t>(~METADATA_V4_READ_WHILE_BINDING);
  return metadata_v4_context_set_file_location(context, path) == 0;
}
