// A packet client on an item's sequenced-packet Unix socket: one packet is one message.
//
// Times are microseconds on the clock of monotonic_clock_us(). A deadline is absolute. Nothing here
// raises SIGPIPE, and every call comes back with its result when a signal interrupts it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

struct comm_socket_v4;

// A packet on its way. flags and sequence are taken over by comm_socket_v4_packet_begin_writing, or
// come from the wire in a received packet, which is a reply only if flag bits 0 and 1 are both clear.
struct comm_socket_v4_packet {
    std::uint8_t flags = 0;
    std::uint64_t sequence = 0;

protected:
    comm_socket_v4_packet() = default;
    ~comm_socket_v4_packet() = default;
};

comm_socket_v4* comm_socket_v4_create();                  // null on failure
comm_socket_v4* comm_socket_v4_destroy(comm_socket_v4*);  // closes; takes null; always returns null

// How long a connect may take, as a duration: the shorter of the two counts. 0 is no limit, and less
// than 0 has run out already, so that only a connect that need not wait works.
void comm_socket_v4_set_connect_timeout(comm_socket_v4*, std::int64_t us);
void comm_socket_v4_set_connect_timeout_routine(comm_socket_v4*, std::int64_t us);

// 0 on success, -1 with errno set. A path longer than a socket address holds is reached through its
// directory; only the last component has to fit.
int comm_socket_v4_connect_to(comm_socket_v4*, const char* path);

comm_socket_v4_packet* comm_socket_v4_packet_create();  // null on failure
void comm_socket_v4_packet_release(comm_socket_v4_packet*);

// 0 on success, -1 when the command word or the argument does not fit. Arguments of begin_writing
// behind the command are reserved.
int comm_socket_v4_packet_begin_writing(
    comm_socket_v4_packet*, int reserved, const char* command, const void*);
[[gnu::format(printf, 2, 3)]] int comm_socket_v4_packet_write_argvf(
    comm_socket_v4_packet*, const char* format, ...);
void comm_socket_v4_packet_write_end(comm_socket_v4_packet*);

// Above 0: sent whole. 0: the socket takes nothing now. Below 0: failed.
int comm_socket_v4_packet_send_to_server(comm_socket_v4*, comm_socket_v4_packet*);

// Above 0: ready. 0: the deadline came or a signal did. Below 0: failed.
int comm_socket_v4_wait_for_client_to_server_writeable(comm_socket_v4*, std::uint64_t deadline);
int comm_socket_v4_client_from_server_readable(comm_socket_v4*, std::uint64_t deadline);

// The connection's descriptor, for a wait on many at once; -1 before it is connected.
int comm_socket_v4_descriptor(const comm_socket_v4*);

// Below 0 once the server has hung up and nothing that it sent is left to read.
int comm_socket_v4_idle(comm_socket_v4*);

// The next packet, whole whatever its size, or null if there is none yet.
comm_socket_v4_packet* comm_socket_v4_client_get_packet_from_server(comm_socket_v4*);

// What a received packet holds. An entry is in_table only if the table of entries reaches that far;
// name and value are null where they are missing, and live as long as the packet.
struct comm_socket_v4_entry {
    bool in_table;
    const char* name;
    const char* value;
};
std::size_t comm_socket_v4_packet_entries(const comm_socket_v4_packet*);
comm_socket_v4_entry comm_socket_v4_packet_entry(const comm_socket_v4_packet*, std::size_t index);

// Owners for the two handles above.
struct CommSocketDestroy {
    void operator()(comm_socket_v4* socket) const { comm_socket_v4_destroy(socket); }
};
using CommSocket = std::unique_ptr<comm_socket_v4, CommSocketDestroy>;

struct CommPacketRelease {
    void operator()(comm_socket_v4_packet* packet) const { comm_socket_v4_packet_release(packet); }
};
using CommPacket = std::unique_ptr<comm_socket_v4_packet, CommPacketRelease>;
