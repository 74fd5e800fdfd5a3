#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include "listening_socket.hpp"
#include "platform/comm.hpp"
#include "platform/packet.hpp"
#include "platform/socket_io.hpp"
#include "platform/time.hpp"
#include "temporary_directory.hpp"

namespace {

TEST(SocketAddress, PathOfAnyLengthCanBeBoundAndConnected)
{
    const TemporaryDirectory directory;
    const std::string deep = directory / std::string(120, 'd');
    ASSERT_EQ(mkdir_p(deep.c_str(), 0755, -1), 0);
    // The longest path that an address holds with its NUL, the first that it doesn't, and a long one.
    const std::size_t room = sizeof(sockaddr_un::sun_path) - (directory / "").size();
    for (const std::string& path :
        {directory / std::string(room - 1, 'a'), directory / std::string(room, 'b'), deep + "/socket"}) {
        SCOPED_TRACE(path.size());
        const Descriptor listener = listen_at(path);
        ASSERT_TRUE(listener);
        struct stat made {};
        EXPECT_TRUE(::stat(path.c_str(), &made) == 0 && S_ISSOCK(made.st_mode));
        const CommSocket client(comm_socket_v4_create());
        EXPECT_EQ(comm_socket_v4_connect_to(client.get(), path.c_str()), 0);
    }
    for (const std::string& unusable : {std::string(), directory / std::string(150, 'n')})
        EXPECT_FALSE(SocketAddress().set(unusable));
}

TEST(CommSocket, ConnectToAFullBacklogEndsWithItsTimeLimit)
{
    const TemporaryDirectory directory;
    const Descriptor listener = listen_at(directory / "s", 0);
    ASSERT_TRUE(listener);
    const CommSocket first(comm_socket_v4_create());
    ASSERT_EQ(comm_socket_v4_connect_to(first.get(), (directory / "s").c_str()), 0);
    const std::pair<std::int64_t, std::int64_t> limits[] = {{50000, 30000000}, {0, 50000}, {-1, 30000000}};
    for (const auto& [limit, routine] : limits) {
        const CommSocket second(comm_socket_v4_create());
        comm_socket_v4_set_connect_timeout(second.get(), limit);
        comm_socket_v4_set_connect_timeout_routine(second.get(), routine);
        const std::uint64_t begun = monotonic_clock_us();
        EXPECT_EQ(comm_socket_v4_connect_to(second.get(), (directory / "s").c_str()), -1);
        const std::uint64_t took = monotonic_clock_us() - begun;
        EXPECT_LT(took, 10000000U) << limit;
        EXPECT_GE(took, limit < 0 ? 0U : 40000U) << limit;
    }
}

TEST(CommSocket, ReplySentBeforeHangingUpIsStillRead)
{
    const TemporaryDirectory directory;
    const Descriptor listener = listen_at(directory / "s");
    const CommSocket client(comm_socket_v4_create());
    ASSERT_EQ(comm_socket_v4_connect_to(client.get(), (directory / "s").c_str()), 0);
    EXPECT_EQ(comm_socket_v4_idle(client.get()), 0) << "nothing has come yet";
    Descriptor server(::accept(listener.get(), nullptr, nullptr));
    packet::Writer writer;
    writer.begin("report", packet::FLAG_EVENT, 42);
    writer.add("*key", "value");
    writer.finish();
    ASSERT_GT(send_packet(server.get(), {}), 0);
    ASSERT_GT(send_packet(server.get(), writer.bytes()), 0);
    server.reset();
    EXPECT_EQ(comm_socket_v4_client_get_packet_from_server(client.get()), nullptr) << "the empty one";
    EXPECT_EQ(comm_socket_v4_idle(client.get()), 0);
    const CommPacket reply(comm_socket_v4_client_get_packet_from_server(client.get()));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->flags, packet::FLAG_EVENT);
    EXPECT_EQ(reply->sequence, 42U);
    EXPECT_STREQ(comm_socket_v4_packet_entry(reply.get(), 0).value, "value");
    EXPECT_LT(comm_socket_v4_idle(client.get()), 0);
}

}  // namespace
