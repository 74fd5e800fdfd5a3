// A socket of the kind that drivers serve.
#pragma once

#include <string>

#include "platform/socket_io.hpp"

// Bound there and listening; none when that fails.
inline Descriptor listen_at(const std::string& path, int backlog = 8)
{
    Descriptor listener(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
    SocketAddress at;
    const bool listens = at.set(path) &&
                         ::bind(listener.get(), reinterpret_cast<sockaddr*>(&at.address), at.length) == 0 &&
                         ::listen(listener.get(), backlog) == 0;
    return listens ? std::move(listener) : Descriptor();
}
