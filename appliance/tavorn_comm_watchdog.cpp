// The stand-in for the watchdog beside a supervised driver. It asks the item once a second whether it
// answers and says so when that changes; it ends nothing. SIGTERM ends it.

#include <climits>
#include <cstdint>
#include <cstdio>
#include <string>
#include <unistd.h>

#include "platform/comm.hpp"
#include "platform/metadata.hpp"
#include "platform/request.hpp"
#include "platform/time.hpp"

namespace {

constexpr std::int64_t ANSWER_LIMIT_US = 1000000;

bool sends_report_request(comm_socket_v4* socket)
{
    const CommPacket request = begin_request("report");
    if (!request)
        return false;
    comm_socket_v4_packet_write_end(request.get());
    return comm_socket_v4_packet_send_to_server(socket, request.get()) > 0;
}

bool answers(const std::string& path)
{
    const CommSocket socket(comm_socket_v4_create());
    if (!socket)
        return false;
    comm_socket_v4_set_connect_timeout(socket.get(), ANSWER_LIMIT_US);
    if (comm_socket_v4_connect_to(socket.get(), path.c_str()) != 0 || !sends_report_request(socket.get()))
        return false;
    const std::uint64_t deadline = monotonic_clock_us() + ANSWER_LIMIT_US;
    while (monotonic_clock_us() < deadline && comm_socket_v4_idle(socket.get()) >= 0) {
        comm_socket_v4_client_from_server_readable(socket.get(), deadline);
        const CommPacket packet(comm_socket_v4_client_get_packet_from_server(socket.get()));
        if (packet && is_reply(*packet))
            return true;
    }
    return false;
}

[[noreturn]] void watch(const char* settings_path, const std::string& socket_path)
{
    for (bool answered = false;; ::sleep(1)) {
        const bool now = answers(socket_path);
        if (now != answered)
            std::printf("%s %s\n", settings_path, now ? "answers" : "does not answer");
        std::fflush(stdout);
        answered = now;
    }
}

}  // namespace

int main(int argc, char** argv)
{
    char metadir[PATH_MAX + 1];
    if (argc != 2 || metadata_v4_file_to_metadir(metadir, sizeof metadir, argv[1]) != 0) {
        std::fputs("usage: tavorn-comm-watchdog SETTINGS\n", stderr);
        return 1;
    }
    watch(argv[1], std::string(metadir) + "/" + ACTIVE_SOCKET_ENTRY);
}
