// The least that a listing of running items can cost: `bare_exchanges SOCKET ...` sends "report" to each
// socket and takes the reply, one after the other.
#include <cstdint>

#include "platform/comm.hpp"
#include "platform/time.hpp"

namespace {

bool exchange(const char* path)
{
    const CommSocket connection(comm_socket_v4_create());
    const CommPacket request(comm_socket_v4_packet_create());
    request->flags = 1;
    if (comm_socket_v4_connect_to(connection.get(), path) != 0 ||
        comm_socket_v4_packet_begin_writing(request.get(), 0, "report", nullptr) != 0)
        return false;
    comm_socket_v4_packet_write_end(request.get());
    if (comm_socket_v4_packet_send_to_server(connection.get(), request.get()) <= 0)
        return false;
    comm_socket_v4_client_from_server_readable(connection.get(), monotonic_clock_us() + 1000000);
    return CommPacket(comm_socket_v4_client_get_packet_from_server(connection.get())) != nullptr;
}

}  // namespace

int main(int argc, char** argv)
{
    bool all = true;
    for (int i = 1; i < argc; ++i)
        all = exchange(argv[i]) && all;
    return all ? 0 : 1;
}
