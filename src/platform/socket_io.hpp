// Packets through a connected or bound sequenced-packet socket, for clients and servers alike.
#pragma once

#include <cstdint>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <vector>

#include "platform/io.hpp"

// A socket address for a path of any length. A path that the address cannot hold goes through the
// descriptor of its directory, which is held open in `directory` for as long as the address is used.
struct SocketAddress {
    sockaddr_un address{};
    socklen_t length = 0;
    Descriptor directory;

    // False with errno set: the path is empty, the directory can't be opened, or the last component is
    // too long.
    bool set(const std::string& path);
};

// One packet in one call, without waiting. Above 0 sent, 0 not now, below 0 failed with errno set. The
// socket's buffer grows for a packet that it can't hold.
int send_packet(int socket, const std::vector<unsigned char>& bytes);

enum class Received { PACKET, NOTHING_YET, HUNG_UP };

// The next packet, without waiting and whole, whatever its size. An empty packet says nothing and is
// dropped.
Received receive_packet(int socket, std::vector<unsigned char>& bytes);

// Whether bytes of a packet wait to be read, also after the peer has hung up.
bool has_unread_bytes(int socket);
