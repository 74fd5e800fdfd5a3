#include "platform/metadata.hpp"

#include <cerrno>
#include <charconv>
#include <cinttypes>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <string_view>
#include <sys/file.h>

#include "platform/io.hpp"

namespace {

const std::string PREFIX = ".";
const std::string SUFFIX = ".metadir";
constexpr std::size_t SHORT_FORM_BYTES = 64;
constexpr std::int64_t METADATA_LIMIT = std::int64_t{1} << 20;

void append_encoded(std::string& out, unsigned char byte)
{
    constexpr char DIGITS[] = "0123456789ABCDEF";
    if (byte > 32 && byte != 127 && byte != '%') {
        out += static_cast<char>(byte);
        return;
    }
    out += '%';
    out += DIGITS[byte >> 4];
    out += DIGITS[byte & 15];
}

std::string encoded(std::string_view name)
{
    std::string text;
    for (const char byte : name)
        append_encoded(text, static_cast<unsigned char>(byte));
    return text;
}

// 64 bits of FNV-1a.
std::uint64_t hash_of(std::string_view name)
{
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char byte : name)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
    return hash;
}

// What tells a name apart whose own metadir would have too long a name: how it begins, and a hash. No encoded
// name holds "%-".
std::string shortened(std::string_view name)
{
    char hash[17];
    std::snprintf(hash, sizeof hash, "%016" PRIX64, hash_of(name));
    return encoded(name.substr(0, SHORT_FORM_BYTES)) + "%-" + hash;
}

// Empty when the file can have no metadir.
std::string metadir_of(std::string_view file)
{
    const std::size_t slash = file.rfind('/');
    const std::string_view name = slash == std::string_view::npos ? file : file.substr(slash + 1);
    if (name.empty() || name == "." || name == ".." || name.size() > NAME_MAX)
        return {};
    std::string metadir = PREFIX + encoded(name) + SUFFIX;
    if (metadir.size() > NAME_MAX)
        metadir = PREFIX + shortened(name) + SUFFIX;
    return std::string(file.substr(0, file.size() - name.size())) + metadir;
}

// A metadata file, and none that a neighbour has put there to read elsewhere or to wait for.
Descriptor open_metadata(const std::string& metadir)
{
    const Descriptor directory(::open(metadir.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    return directory ? open_regular_file(directory.get(), METADATA_ENTRY, METADATA_LIMIT) : Descriptor();
}

// "<stream> TAB <name> TAB <value>", where "*" as the stream is the whole file.
bool read_line(std::string_view line, metadata_v4_entry& entry)
{
    const std::size_t first = line.find('\t');
    const std::size_t second = first == std::string_view::npos ? first : line.find('\t', first + 1);
    if (second == std::string_view::npos)
        return false;
    const std::string_view stream = line.substr(0, first);
    entry.stream = METADATA_V4_WHOLE_FILE;
    if (stream != "*") {
        const auto [end, error] = std::from_chars(stream.data(), stream.data() + stream.size(), entry.stream);
        if (error != std::errc{} || end != stream.data() + stream.size() ||
            entry.stream == METADATA_V4_WHOLE_FILE)
            return false;
    }
    entry.name = line.substr(first + 1, second - first - 1);
    entry.value = line.substr(second + 1);
    return true;
}

}  // namespace

int metadata_v4_file_to_metadir(char* out, unsigned long out_size, const char* file)
{
    const std::string metadir = metadir_of(file);
    const bool fits = !metadir.empty() && metadir.size() < out_size;
    if (out_size > 0)
        std::memcpy(out, metadir.c_str(), fits ? metadir.size() + 1 : 0);
    if (out_size > 0 && !fits)
        out[0] = '\0';
    return fits ? 0 : -1;
}

bool is_metadir_name(std::string_view name)
{
    return name.size() > PREFIX.size() + SUFFIX.size() && name.starts_with(PREFIX) && name.ends_with(SUFFIX);
}

metadata_v4_context* metadata_v4_context_create()
{
    return new (std::nothrow) metadata_v4_context;
}

void metadata_v4_context_destroy(metadata_v4_context* context)
{
    delete context;
}

int metadata_v4_context_set_file_location(metadata_v4_context* context, const char* path)
{
    context->location = path;
    return context->location.empty() ? -1 : 0;
}

metadata_v4_metadata_context* metadata_v4_metadata_context_create()
{
    return new (std::nothrow) metadata_v4_metadata_context;
}

void metadata_v4_metadata_context_destroy(metadata_v4_metadata_context* context)
{
    delete context;
}

int metadata_v4_metadata_context_load_metadata_from_file(
    metadata_v4_metadata_context* metadata, metadata_v4_context* file, int mode, const void*)
{
    metadata->mode = mode;
    metadata->entries.clear();
    metadata->count = 0;
    const std::string metadir = metadir_of(file->location);
    if (metadir.empty()) {
        errno = ENAMETOOLONG;
        return -1;
    }
    const Descriptor stored = open_metadata(metadir);
    // A writer holds the lock for as long as its file is not whole.
    if (!stored || ::flock(stored.get(), LOCK_SH | LOCK_NB) != 0)
        return -1;
    LineReader lines(stored.get());
    for (std::string_view line; lines.next(line);)
        if (metadata_v4_entry entry; read_line(line, entry))
            metadata->entries.push_back(std::move(entry));
    metadata->count = metadata->entries.size();
    return lines.failed() ? -1 : 0;
}

const metadata_v4_entry* metadata_v4_metadata_context_read_entry(
    const metadata_v4_metadata_context* metadata, std::size_t index)
{
    return index < metadata->entries.size() ? &metadata->entries[index] : nullptr;
}
