#include "control/items/file_type.hpp"

#include <cassert>
#include <cerrno>
#include <memory>
#include <unistd.h>

#include "platform/metadata.hpp"

namespace {

constexpr int LOAD_MODE = 2;
constexpr int READ_ATTEMPTS = 6;
constexpr useconds_t BETWEEN_READS_US = 50000;
constexpr std::uint8_t REMOTE_FLAG = 0x20;

// A metadata file that is just being written is tried again for a while.
void load(metadata_v4_metadata_context* metadata, metadata_v4_context* meta)
{
    for (int attempt = 1; attempt <= READ_ATTEMPTS; ++attempt) {
        if (metadata_v4_metadata_context_load_metadata_from_file(metadata, meta, LOAD_MODE, nullptr) >= 0 ||
            errno != EAGAIN)
            return;
        if (attempt < READ_ATTEMPTS)
            ::usleep(BETWEEN_READS_US);
    }
}

}  // namespace

std::string read_file_type(const std::string& path)
{
    const std::unique_ptr<metadata_v4_metadata_context, decltype(&metadata_v4_metadata_context_destroy)>
        metadata(metadata_v4_metadata_context_create(), metadata_v4_metadata_context_destroy);
    assert(metadata != nullptr);
    const std::unique_ptr<metadata_v4_context, decltype(&metadata_v4_context_destroy)> meta(
        metadata_v4_context_create(), metadata_v4_context_destroy);
    assert(meta != nullptr);
    meta->flags = static_cast<std::uint8_t>(meta->flags & ~REMOTE_FLAG);
    if (metadata_v4_context_set_file_location(meta.get(), path.c_str()) == 0)
        load(metadata.get(), meta.get());
    std::string type;
    for (std::size_t i = 0; i < metadata->count; ++i) {
        const metadata_v4_entry* entry = metadata_v4_metadata_context_read_entry(metadata.get(), i);
        if (entry && entry->stream == METADATA_V4_WHOLE_FILE && entry->name == "file type")
            type = entry->value;
    }
    return type;
}
