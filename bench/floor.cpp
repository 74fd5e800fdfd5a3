// The least that a command can cost, for the measurements:
//
//     floor status                       one read of the socket table, and one pass over all descriptors
//     floor running SOCKET...            the same, and an exchange with each, all at once
//     floor stopped DIRECTORY MANIFEST   prints what "list" does of stopped outputs: for each two lstat and
//                                        one read, nothing that was read is copied, and one write
#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

#include "platform/comm.hpp"
#include "platform/io.hpp"
#include "platform/mediaitem.hpp"
#include "platform/time.hpp"

namespace {

template <typename Visit> void each_number_in(int directory, Visit visit)
{
    alignas(dirent64) char buffer[32768];
    for (long got = 0; (got = ::syscall(SYS_getdents64, directory, buffer, sizeof buffer)) > 0;) {
        for (long at = 0; at < got;) {
            const auto* entry = reinterpret_cast<const dirent64*>(buffer + at);
            at += entry->d_reclen;
            if (entry->d_name[0] >= '0' && entry->d_name[0] <= '9')
                visit(entry->d_name);
        }
    }
}

int walk()
{
    char buffer[65536];
    const Descriptor table(::open("/proc/net/unix", O_RDONLY | O_CLOEXEC));
    while (::read(table.get(), buffer, sizeof buffer) > 0) {
    }
    const Descriptor proc(::open("/proc", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ssize_t failed = 0;
    each_number_in(proc.get(), [&](const char* process) {
        const std::string path = std::string(process) + "/fd";
        const Descriptor handles(::openat(proc.get(), path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (handles)
            each_number_in(handles.get(), [&](const char* handle) {
                failed += ::readlinkat(handles.get(), handle, buffer, sizeof buffer) < 0;
            });
    });
    return failed > 1000 ? 1 : 0;
}

CommSocket ask(const char* path)
{
    CommSocket connection(comm_socket_v4_create());
    const CommPacket request(comm_socket_v4_packet_create());
    request->flags = 1;
    comm_socket_v4_packet_begin_writing(request.get(), 0, "report", nullptr);
    comm_socket_v4_packet_write_end(request.get());
    const bool asked = comm_socket_v4_connect_to(connection.get(), path) == 0 &&
                       comm_socket_v4_packet_send_to_server(connection.get(), request.get()) > 0;
    return asked ? std::move(connection) : nullptr;
}

bool is_answered(const CommSocket& connection)
{
    return connection &&
           comm_socket_v4_client_from_server_readable(connection.get(), monotonic_clock_us() + 1000000) > 0 &&
           CommPacket(comm_socket_v4_client_get_packet_from_server(connection.get()));
}

bool exchange_at_once(char** paths, char** end)
{
    std::vector<CommSocket> connections(static_cast<std::size_t>(end - paths));
    std::transform(paths, end, connections.begin(), ask);
    return std::all_of(connections.begin(), connections.end(), is_answered);
}

struct Entry {
    std::string_view key;
    std::string_view value;
    char mark;
};

void print(std::string& text, const Entry& entry)
{
    const char before[] = {'\t', entry.mark, '\t'};
    text.append(before, sizeof before).append(entry.key).append("=").append(entry.value).append("\n");
}

void read_settings(const std::string& path, std::vector<Entry>& entries)
{
    static char buffer[65536];
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    const ssize_t got = ::read(file.get(), buffer, sizeof buffer);
    std::string_view left(buffer, static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    while (!left.empty()) {
        const std::string_view line = cut_line(left);
        if (const std::size_t equals = line.find('='); equals != line.npos)
            entries.push_back({line.substr(0, equals), line.substr(equals + 1), '='});
    }
}

void list_item(std::string& text, const std::string& directory, const std::string& name,
    const std::vector<Entry>& defaults)
{
    struct stat state {};
    const std::string path = directory + "/" + name;
    ::lstat(path.c_str(), &state);
    ::lstat((directory + "/." + name + ".metadir").c_str(), &state);
    std::vector<Entry> entries = {{"running", "0", '*'}, {"uptime", "", '*'}};
    entries.reserve(64);
    read_settings(path, entries);
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) { return a.key < b.key; });
    text.append(name).append("{\n");
    auto own = entries.begin();
    for (const Entry& entry : defaults) {
        int order = -1;
        for (; own != entries.end() && (order = own->key.compare(entry.key)) < 0; ++own)
            print(text, *own);
        if (own == entries.end() || order != 0)
            print(text, entry);
    }
    std::for_each(own, entries.end(), [&](const Entry& entry) { print(text, entry); });
    text += "}\n";
}

int list_stopped(const std::string& directory, const char* manifest_path)
{
    zelm_config_list manifest;
    manifest.load_arglist(manifest_path);
    std::vector<Entry> defaults;
    for (const auto& [key, entry] : manifest)
        defaults.push_back({key, entry.default_value, entry.letter == 0 ? '?' : entry.letter});
    std::vector<std::string> names;
    const Directory entries(::opendir(directory.c_str()));
    while (const dirent* entry = ::readdir(entries.get()))
        if (entry->d_type == DT_REG)
            names.emplace_back(entry->d_name);
    std::sort(names.begin(), names.end());
    std::string text;
    for (const std::string& name : names)
        list_item(text, directory, name, defaults);
    return ::write(STDOUT_FILENO, text.data(), text.size()) == static_cast<ssize_t>(text.size()) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv)
{
    const std::string_view what = argc > 1 ? argv[1] : "";
    if (what == "stopped" && argc == 4)
        return list_stopped(argv[2], argv[3]);
    const bool all = what == "status" || (what == "running" && exchange_at_once(argv + 2, argv + argc));
    return all ? walk() : 1;
}
