#ifndef NV8X_PLATFORM_METADATA_V4_H
#define NV8X_PLATFORM_METADATA_V4_H

/*
 * The part of the playout system's metadata library that this program needs. The folder media/
 * has an implementation for machines without a playout system. A site can link its own.
 *
 * Texts are NUL-terminated and owned by the library. Every destroy function also accepts null. It
 * returns null, so that the caller can clear its variable.
 */

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Option bit of a file context: read the file's metadata while binding. It is set in a new context.
 * Callers that may not need the metadata clear it. */
#define METADATA_V4_READ_WHILE_BINDING 0x20

/* A file whose metadata can be read. Implementations may have further fields after these. */
typedef struct metadata_v4_context {
  uint8_t options;
  int directory; /* open handle on the directory of the bound file, or negative */
} metadata_v4_context;

/* A set of entries, numbered from 0 to entry_count - 1. */
typedef struct metadata_v4_metadata_context {
  int32_t entry_count;
} metadata_v4_metadata_context;

typedef struct metadata_v4_entry {
  const char* name;  /* may be null */
  const char* value; /* may be null */
  int32_t group;     /* index of the entry's group, or negative for none */
} metadata_v4_entry;

/* Null when out of resources. */
metadata_v4_context* metadata_v4_context_create(void);

/* Binds the context to the file at the path and opens its directory. The file need not exist.
 * Returns 0 on success. */
int metadata_v4_context_set_file_location(metadata_v4_context* context, const char* path);

metadata_v4_context* metadata_v4_context_destroy(metadata_v4_context* context);

/* An empty set; null when out of resources. */
metadata_v4_metadata_context* metadata_v4_metadata_context_create(void);

/* Appends an entry. A length of 0 means that the text ends at its NUL. Returns 0 on success. */
int metadata_v4_metadata_context_add_name_value_pair(metadata_v4_metadata_context* set,
                                                     const char* name, size_t name_length,
                                                     const char* value, size_t value_length,
                                                     int32_t group);

/* All metadata of the bound file, or null when it cannot be read. The last two arguments are
 * reserved and must be 0 and null. */
metadata_v4_metadata_context* metadata_v4_metadata_context_from_file(metadata_v4_context* context,
                                                                     int flags, void* reserved);

/* Optional: a library may leave it out, and its address is null then. The MIME type of the bound
 * file, for callers that only ask whether the file is a schedule. It is the value of the last entry
 * "file type" without a group. Null when there is none. A library that knows, without reading all
 * metadata, that the file is no schedule may give any other type, such as application/octet-stream.
 * Valid until the context is destroyed. */
__attribute__((weak)) const char* metadata_v4_context_read_file_type(metadata_v4_context* context);

/* The entry at an index, or null. The entry is valid until the next call on the set. Its texts are
 * valid until the set is destroyed. */
const metadata_v4_entry* metadata_v4_metadata_context_read_entry(metadata_v4_metadata_context* set,
                                                                 int32_t index);

/* The name of a group, or null. */
const char* metadata_v4_metadata_context_read_group_name(metadata_v4_metadata_context* set,
                                                         int32_t group);

/* Optional: a library may leave it out, and its address is null then. The path of the file that
 * holds the entry at an index, or null when the library does not know. Valid until the next call on
 * the set. */
__attribute__((weak)) const char* metadata_v4_metadata_context_read_entry_source(
    metadata_v4_metadata_context* set, int32_t index);

metadata_v4_metadata_context* metadata_v4_metadata_context_destroy(
    metadata_v4_metadata_context* set);

#ifdef __cplusplus
}
#endif

#endif
