#include "fuzz/targets.hpp"

#include <cstdlib>
#include <json11.hpp>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "control/infolist.hpp"
#include "control/items/rewrite_settings.hpp"
#include "control/processes/socket_table.hpp"
#include "platform/mediaitem.hpp"
#include "platform/metadata.hpp"
#include "platform/packet.hpp"
#include "schema/create_consumer.hpp"
#include "schema/create_emitter.hpp"

namespace {

constexpr const char* DRIVERS[] = {
#define DRIVER(word, kind, table, Emitter, Consumer) #word,
#include "schema/drivers.def"
};

std::string rewritten(std::string_view settings)
{
    const Descriptor source = nameless_file(settings);
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* out = ::open_memstream(&text, &size);
    require(out && rewrite_settings(source.get(), out, {}));
    std::fclose(out);
    std::string result(text, size);
    std::free(text);
    return result;
}

// A directory with the metadir of a file called "f" in it, for the life of the process.
class MediaDirectory {
public:
    MediaDirectory()
    {
        char name[] = "/tmp/fuzz.XXXXXX";
        require(::mkdtemp(name) != nullptr);
        m_path = name;
        require(::mkdir(metadir().c_str(), 0700) == 0);
    }
    ~MediaDirectory()
    {
        ::unlink(metadata().c_str());
        ::rmdir(metadir().c_str());
        ::rmdir(m_path.c_str());
    }
    MediaDirectory(const MediaDirectory&) = delete;
    MediaDirectory& operator=(const MediaDirectory&) = delete;

    std::string file() const { return m_path + "/f"; }
    std::string metadir() const { return m_path + "/.f.metadir"; }
    std::string metadata() const { return metadir() + "/metadata"; }

private:
    std::string m_path;
};

}  // namespace

Descriptor nameless_file(std::string_view bytes)
{
    Descriptor file(::memfd_create("fuzz", MFD_CLOEXEC));
    require(::write(file.get(), bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
    ::lseek(file.get(), 0, SEEK_SET);
    return file;
}

std::string path_of(const Descriptor& file)
{
    return "/proc/self/fd/" + std::to_string(file.get());
}

void require(bool holds)
{
    if (!holds)
        std::abort();
}

// A document's values may be such that no flat text or no JSON can be made of them, which ends a run.
void fuzz_documents(std::string_view bytes)
{
    if (bytes.empty())
        return;
    const std::string driver = DRIVERS[static_cast<unsigned char>(bytes.front()) % std::size(DRIVERS)];
    const auto consumer = createConsumer(driver, std::string(bytes.substr(1)));
    InfoList list;
    try {
        consumer->createItems();
        for (const auto& [key, value] : consumer->items())
            list[key].value = value;
        const auto emitter = createEmitter(driver);
        emitter->add(list);
        std::string error;
        json11::Json::parse(json11::Json(emitter->emitJson()).dump(), error);
        require(error.empty());
    } catch (...) {
    }
}

void fuzz_manifests(std::string_view bytes)
{
    const Descriptor file = nameless_file(bytes);
    zelm_config_list list;
    list.with_texts = 1;
    const bool whole = list.load_arglist(path_of(file).c_str()) == 0;
    require(whole || list.begin() == list.end());
}

void fuzz_metadata(std::string_view bytes)
{
    static const MediaDirectory media;
    std::FILE* out = std::fopen(media.metadata().c_str(), "wb");
    require(out && std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size());
    std::fclose(out);
    metadata_v4_context where;
    metadata_v4_context_set_file_location(&where, media.file().c_str());
    metadata_v4_metadata_context metadata;
    metadata_v4_metadata_context_load_metadata_from_file(&metadata, &where, 2, nullptr);
}

void fuzz_packets(std::string_view bytes)
{
    const std::vector<unsigned char> copy(bytes.begin(), bytes.end());
    const packet::Reader reader(copy);
    const auto* end = reinterpret_cast<const char*>(copy.data() + copy.size());
    for (std::size_t i = 0; i <= reader.arguments(); ++i) {
        const packet::Reader::Argument argument = reader.argument(i);
        for (const char* text : {argument.name, argument.value})
            require(!text || (argument.in_table && text + std::string_view(text).size() < end));
    }
    require(std::string_view(reader.command()).size() <= bytes.size());
}

// The first rewriting puts the mark in front of the settings and the second one comments in front of the
// mark; a third one leaves all as it is.
void fuzz_settings(std::string_view bytes)
{
    for (const Role& role : ROLES) {
        InfoList list;
        load_infolist_from_file(list, role, nameless_file(bytes).get());
    }
    const std::string twice = rewritten(rewritten(bytes));
    require(rewritten(twice) == twice);
}

void fuzz_sockets(std::string_view bytes)
{
    const Descriptor file = nameless_file(bytes);
    ProcNetUnixSnapshot table;
    table.take(path_of(file).c_str());
    table.for_each([](std::string_view path, unsigned int) { require(path.find(' ') == path.npos); });
}
