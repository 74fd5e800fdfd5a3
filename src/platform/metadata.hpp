// An item's metadata directory, and the metadata of a media file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The entries of a metadir that the tool knows by name.
constexpr const char METADATA_ENTRY[] = "metadata";
constexpr const char ACTIVE_SOCKET_ENTRY[] = ".media.item.active.socket";

// Writes the metadir of a file into `out`. The metadir is a hidden sibling of the file, and its name
// follows from the file's name alone: a full path gives a full path, a bare name a name relative to
// its directory. Blanks, control bytes and "%" are written as "%XX", since the kernel's table of
// sockets ends a path at its first blank. Where that would be longer than a file name may be, the
// metadir has a short form of the name and a hash. 0 on success; -1 when the name is no file name or
// when `out` is too small: `out` is then the empty text.
int metadata_v4_file_to_metadir(char* out, unsigned long out_size, const char* file);

// Has or may some file a metadir of that name?
bool is_metadir_name(std::string_view name);

// Where a media file is. Bit 5 of the flags stands for remote files, which a caller that wants none
// clears.
struct metadata_v4_context {
    std::uint8_t flags = 0x20;
    std::string location;
};

// One entry of a file's metadata. `stream` is all ones for what concerns the file as a whole.
struct metadata_v4_entry {
    std::string name;
    std::string value;
    std::uint32_t stream;
};
constexpr std::uint32_t METADATA_V4_WHOLE_FILE = 0xffffffff;

struct metadata_v4_metadata_context {
    int mode = 0;
    std::size_t count = 0;
    std::vector<metadata_v4_entry> entries;
};

metadata_v4_context* metadata_v4_context_create();
void metadata_v4_context_destroy(metadata_v4_context*);
int metadata_v4_context_set_file_location(metadata_v4_context*, const char* path);  // 0 on success

metadata_v4_metadata_context* metadata_v4_metadata_context_create();
void metadata_v4_metadata_context_destroy(metadata_v4_metadata_context*);

// Reads the metadata of the file, of 1 MiB at most. Not below 0 on success; below 0 with errno set on
// failure, EAGAIN while a writer holds the metadata file. Mode 2 reads what is stored and looks into no
// media. The last argument is reserved.
int metadata_v4_metadata_context_load_metadata_from_file(
    metadata_v4_metadata_context*, metadata_v4_context*, int mode, const void*);

// The entry of that index, or null.
const metadata_v4_entry* metadata_v4_metadata_context_read_entry(
    const metadata_v4_metadata_context*, std::size_t);
