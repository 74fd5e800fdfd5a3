// Sockets of the kind that drivers serve.
#pragma once

#include <gtest/gtest.h>
#include <string>

#include "platform/socket_io.hpp"

// Bound there, and not listening yet.
inline Descriptor socket_at(const std::string& path)
{
    Descriptor socket(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0));
    SocketAddress at;
    EXPECT_TRUE(at.set(path));
    EXPECT_EQ(::bind(socket.get(), reinterpret_cast<const sockaddr*>(&at.address), at.length), 0) << path;
    return socket;
}

inline Descriptor listen_at(const std::string& path, int backlog = 8)
{
    Descriptor listener = socket_at(path);
    EXPECT_EQ(::listen(listener.get(), backlog), 0) << path;
    return listener;
}
