#include "fuzz/targets.hpp"

#include <array>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <json11.hpp>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "control/infolist.hpp"
#include "control/items/rewrite_settings.hpp"
#include "control/processes/socket_table.hpp"
#include "control/reports/merge_report.hpp"
#include "control/run_state.hpp"
#include "platform/mediaitem.hpp"
#include "platform/metadata.hpp"
#include "platform/packet.hpp"
#include "platform/socket_io.hpp"
#include "schema/create_consumer.hpp"
#include "schema/create_emitter.hpp"
#include "schema/schemas.hpp"
#include "zelm_driver/item_socket.hpp"
#include "zelm_driver/server.hpp"
#include "zelmctl/appliance/appliance_file.hpp"
#include "zelmctl/check/check_document.hpp"
#include "zelmctl/check/check_manifest.hpp"
#include "zelmctl/check/check_settings.hpp"
#include "zelmctl/printable.hpp"

namespace {

// Ends the process when what must hold does not.
void require(bool holds)
{
    if (!holds)
        std::abort();
}

// A file of these bytes that has no name, to be read from its beginning, and a path to it.
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

// The driver that an input is for, whose byte is cut off.
const Schema& cut_driver(std::string_view& bytes)
{
    const auto byte = static_cast<unsigned char>(bytes.empty() ? 0 : bytes.front());
    bytes.remove_prefix(bytes.empty() ? 0 : 1);
    return SCHEMAS[byte % std::size(SCHEMAS)];
}

// A document's values may be such that no JSON can be made of them, which ends a run.
void emit(const Schema& schema, const InfoList& list)
{
    const auto emitter = createEmitter(std::string(schema.driver));
    emitter->add(list);
    try {
        std::string error;
        json11::Json::parse(json11::Json(emitter->emitJson()).dump(), error);
        require(error.empty());
    } catch (...) {
    }
}

zelm_config_list manifest_of(std::string_view text)
{
    zelm_config_list list;
    list.with_texts = 1;
    const bool whole = list.load_arglist(path_of(nameless_file(text)).c_str()) == 0;
    require(whole || list.begin() == list.end());
    return list;
}

std::string rewritten(std::string_view text, const SettingChanges& set, Lines lines)
{
    const Descriptor source = nameless_file(text);
    char* written = nullptr;
    std::size_t size = 0;
    std::FILE* out = ::open_memstream(&written, &size);
    require(out && rewrite_settings(source.get(), out, set, lines));
    std::fclose(out);
    std::string result(written, size);
    std::free(written);
    return result;
}

void write_file(const std::string& path, std::string_view bytes)
{
    std::FILE* out = std::fopen(path.c_str(), "wb");
    require(out && std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size());
    std::fclose(out);
}

// A directory with a file called "f" and its metadir in it, for the life of the process.
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
        ::unlink(file().c_str());
        ::rmdir(m_path.c_str());
    }
    MediaDirectory(const MediaDirectory&) = delete;
    MediaDirectory& operator=(const MediaDirectory&) = delete;

    const std::string& path() const { return m_path; }
    std::string file() const { return m_path + "/f"; }
    std::string metadir() const { return m_path + "/.f.metadir"; }
    std::string metadata() const { return metadir() + "/metadata"; }
    std::string socket() const { return metadir() + "/" + ACTIVE_SOCKET_ENTRY; }

private:
    std::string m_path;
};

}  // namespace

// What is without a finding can be stored: each line of it is read back as it is meant.
void fuzz_appliances(std::string_view bytes)
{
    Findings findings, unknown;
    const WantedAppliance wanted = read_appliance(std::string(bytes), findings, unknown);
    for (const Finding& finding : findings.all())
        require(as_line("f", finding).ends_with('\n'));
    if (!findings.all().empty())
        return;
    for (const WantedItem& item : wanted.items) {
        SettingChanges changes;
        for (const auto& [key, value] : item.settings)
            changes.push_back({std::string(key), value ? std::optional<std::string>(*value) : std::nullopt});
        const std::string text = rewritten("", changes, Lines::WHOLE);
        InfoList list;
        load_infolist_from_file(list, ROLES[0], nameless_file(text).get());
        for (const auto& [key, value] : item.settings)
            require(value ? list.find(key) && list.find(key)->value == *value : !list.find(key));
    }
}

void fuzz_checks(std::string_view bytes)
{
    const Schema& schema = cut_driver(bytes);
    Findings findings;
    check_document(std::string(schema.driver), std::string(bytes), findings);
    check_settings(nameless_file(bytes).get(), schema.kind, findings);
    check_manifest(nameless_file(bytes).get(), findings);
    for (const Finding& finding : findings.all()) {
        const std::string line = as_line("f", finding);
        require(printable(line) == line.substr(0, line.size() - 1) + "\\n");
        require(!as_json("f", finding).dump().empty());
    }
}

void fuzz_documents(std::string_view bytes)
{
    const Schema& schema = cut_driver(bytes);
    const auto consumer = createConsumer(std::string(schema.driver), std::string(bytes));
    try {
        consumer->createItems();
    } catch (const std::invalid_argument&) {  // which ends a run
    }
    InfoList list;
    for (const auto& [key, value] : consumer->items())
        list[key].value = value;
    emit(schema, list);
}

void fuzz_manifests(std::string_view bytes)
{
    manifest_of(bytes);
}

// The bytes are the name of a media file, too.
void fuzz_metadata(std::string_view bytes)
{
    static const MediaDirectory media;
    char metadir[4 * NAME_MAX];
    if (metadata_v4_file_to_metadir(
            metadir, sizeof metadir, std::string(bytes.substr(0, NAME_MAX)).c_str()) == 0)
        require(is_metadir_name(std::string_view(metadir).substr(std::string_view(metadir).rfind('/') + 1)));
    write_file(media.metadata(), bytes);
    metadata_v4_context* const where = metadata_v4_context_create();
    require(metadata_v4_context_set_file_location(where, media.file().c_str()) == 0);
    metadata_v4_metadata_context* const metadata = metadata_v4_metadata_context_create();
    require(metadata_v4_metadata_context_load_metadata_from_file(metadata, where, 2, nullptr) == 0);
    require(!metadata_v4_metadata_context_read_entry(metadata, metadata->count));
    metadata_v4_metadata_context_destroy(metadata);
    metadata_v4_context_destroy(where);
}

// What its table has, written anew, reads the same.
void fuzz_packets(std::string_view bytes)
{
    const std::vector<unsigned char> copy(bytes.begin(), bytes.end());
    const packet::Reader reader(copy);
    const auto* end = reinterpret_cast<const char*>(copy.data() + copy.size());
    packet::Writer writer;
    std::size_t entries = 0;
    require(writer.begin(reader.command(), reader.flags(), reader.sequence()));
    for (std::size_t i = 0; i <= reader.arguments(); ++i) {
        const packet::Reader::Argument argument = reader.argument(i);
        for (const char* text : {argument.name, argument.value})
            require(!text || (argument.in_table && text + std::string_view(text).size() < end));
        entries += argument.in_table ? 1 : 0;
        if (argument.in_table)
            require(writer.add(argument.name ? argument.name : "", argument.value ? argument.value : ""));
    }
    writer.finish();
    const packet::Reader again(writer.bytes());
    require(again.sequence() == reader.sequence() && !std::strcmp(again.command(), reader.command()));
    require(again.arguments() == entries);
}

void fuzz_reports(std::string_view bytes)
{
    static const MediaDirectory media;
    static zelm_driver::ItemSocket listener;
    static const bool listens = listener.listen(media.metadir(), 1);
    const Schema& schema = cut_driver(bytes);
    const CommSocket client(comm_socket_v4_create());
    require(listens && comm_socket_v4_connect_to(client.get(), media.socket().c_str()) == 0);
    const Descriptor server(::accept(listener.get(), nullptr, nullptr));
    require(send_packet(server.get(), {bytes.begin(), bytes.end()}) > 0);
    const CommPacket reply(comm_socket_v4_client_get_packet_from_server(client.get()));
    InfoList list;
    list["driver"].value = schema.driver;
    if (!reply)
        return;
    for (const OddEntry& entry : merge_report(list, reply.get()).value_or(std::vector<OddEntry>()))
        require(entry.name.find('\0') == entry.name.npos);
    require(list.find("driver"));
    emit(schema, list);
    list.clear();
}

// More clients than a driver has stay connected. One that gets no answer hangs up.
void fuzz_server(std::string_view bytes)
{
    class Clock final : public zelm_driver::Item {
        void report(zelm_driver::Report& to) override
        {
            to.status("time", "now"), to.other_status("zone", "");
        }
        void set(const std::string& key, const std::string&) override { require(!key.empty()); }
    } clock;
    static const MediaDirectory media;
    static zelm_driver::Server server;
    static const bool opened = server.open(media.file());
    static std::array<Descriptor, 600> clients;
    static std::size_t turn = 0;
    Descriptor& client = clients[turn++ % clients.size()];
    client.reset(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
    SocketAddress at;
    require(opened && at.set(media.socket()));
    require(::connect(client.get(), reinterpret_cast<const sockaddr*>(&at.address), at.length) == 0);
    const std::vector<unsigned char> sent(bytes.begin(), bytes.end());
    require(send_packet(client.get(), sent) > 0);
    server.answer(clock);
    server.answer(clock);
    const packet::Reader request(sent);
    std::vector<unsigned char> received;
    const bool answered = receive_packet(client.get(), received) == Received::PACKET;
    require(answered == ((request.flags() & packet::FLAG_REQUEST) != 0));
    require(!answered || packet::Reader(received).sequence() == request.sequence());
    if (!answered)
        client.reset();
}

// The first rewriting puts the mark in front of the settings and the second one comments in front of the
// mark; a third one leaves all as it is.
void fuzz_settings(std::string_view bytes)
{
    static const zelm_config_list described = manifest_of("[k]\ndefault=1\n");
    static const MediaDirectory items;
    write_file(items.file(), bytes);
    itemdir.reset(::opendir(items.path().c_str()));
    for (const Role& role : ROLES) {
        exec_mode = number_of(role);
        InfoList list;
        require(infolist_load(list, "f") == 0);
        infolist_get_autostart(list);
        infolist_fill_from_argslist(list, described);
        require(list.find("k"));
    }
    for (const SettingChanges& set : {SettingChanges(), SettingChanges{{"k", "v\nw"}, {"driver", ""}}})
        for (const Lines lines : {Lines::AS_IN_A_SET, Lines::WHOLE}) {
            const std::string twice = rewritten(rewritten(bytes, set, lines), set, lines);
            require(rewritten(twice, set, lines) == twice);
        }
}

void fuzz_sockets(std::string_view bytes)
{
    const Descriptor file = nameless_file(bytes);
    ProcNetUnixSnapshot table;
    table.take(path_of(file).c_str());
    table.for_each([](std::string_view path, unsigned int) { require(path.find(' ') == path.npos); });
}
