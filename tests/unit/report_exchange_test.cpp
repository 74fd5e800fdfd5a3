// Asking an item, against a peer that does one thing after the other: what counts as an answer, and when.
#include "control/reports/report_exchange.hpp"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "control/reports/merge_report.hpp"
#include "listening_socket.hpp"
#include "platform/packet.hpp"
#include "platform/time.hpp"
#include "temporary_directory.hpp"

namespace {

using Bytes = std::vector<unsigned char>;

Bytes packet_of(std::uint8_t flags, const std::vector<std::pair<std::string, std::string>>& entries)
{
    packet::Writer writer;
    writer.begin("report", flags, 0);
    for (const auto& [name, value] : entries)
        writer.add(name.c_str(), value.c_str());
    writer.finish();
    return writer.bytes();
}

class Exchange : public testing::Test {
protected:
    Descriptor accept() const { return Descriptor(::accept(m_listener.get(), nullptr, nullptr)); }

    static ReportOutcome outcome_of(ReportExchange& exchange)
    {
        proceed_to_end(exchange);
        return exchange.outcome();
    }

    TemporaryDirectory m_directory;
    const std::string m_path = m_directory / "s";
    Descriptor m_listener = listen_at(m_path, 0);
};

TEST_F(Exchange, GetsThroughOnceAFullBacklogHasRoom)
{
    const ReportExchange first(m_path, report_deadline(10));
    ReportExchange second(m_path, report_deadline(10));
    EXPECT_EQ(second.awaited().fd, -1) << "there is room for one";
    const Descriptor peer = accept();
    ReportExchange* const exchanges[] = {&second};
    while (!second.has_ended() && second.awaited().fd == -1)
        proceed_with_any(exchanges);
    const Descriptor other_peer = accept();
    ASSERT_GT(send_packet(other_peer.get(), packet_of(0, {})), 0);
    EXPECT_EQ(outcome_of(second), ReportOutcome::REPLIED);
}

// Whose item has hung up since, too.
TEST_F(Exchange, TakesAReplyThatCameInTimeHoweverLateItIsRead)
{
    ReportExchange exchange(m_path, report_deadline(1));
    Descriptor peer = accept();
    for (const Bytes& bytes :
        {Bytes(), packet_of(packet::FLAG_EVENT, {}), Bytes(), packet_of(0, {{"*k", "v"}})}) {
        ASSERT_GT(send_packet(peer.get(), bytes), 0);
        if (bytes.empty())
            exchange.proceed();
        EXPECT_FALSE(exchange.has_ended()) << "an empty packet says nothing";
    }
    peer.reset();
    ::usleep(1050000);
    exchange.proceed();
    EXPECT_EQ(exchange.outcome(), ReportOutcome::REPLIED);
}

TEST_F(Exchange, WaitsNoLongerThanItsLimitToConnectToAFullBacklog)
{
    const ReportExchange first(m_path, report_deadline(10));
    const std::pair<std::int64_t, std::int64_t> limits[] = {{50000, 30000000}, {0, 50000}, {-1, 30000000}};
    for (const auto& [limit, routine] : limits) {
        const CommSocket second(comm_socket_v4_create());
        comm_socket_v4_set_connect_timeout(second.get(), limit);
        comm_socket_v4_set_connect_timeout_routine(second.get(), routine);
        const std::uint64_t begun = monotonic_clock_us();
        EXPECT_EQ(comm_socket_v4_connect_to(second.get(), m_path.c_str()), -1);
        EXPECT_LT(monotonic_clock_us() - begun, 10000000U) << limit;
        EXPECT_GE(monotonic_clock_us() - begun, limit < 0 ? 0U : 40000U) << limit;
    }
}

TEST_F(Exchange, EndsThoughEventsComeWithoutEnd)
{
    ReportExchange exchange(m_path, report_deadline(1));
    const Descriptor peer = accept();
    const pid_t flood = ::fork();
    if (flood == 0) {
        ::alarm(3);
        for (const Bytes event = packet_of(packet::FLAG_EVENT, {});;)
            send_packet(peer.get(), event);
    }
    EXPECT_EQ(outcome_of(exchange), ReportOutcome::TIMED_OUT);
    ::kill(flood, SIGKILL);
    ::waitpid(flood, nullptr, 0);
}

TEST_F(Exchange, ReplyThatWouldFloodTheListingIsLeftOut)
{
    const std::string long_text(100000, 'x');
    const struct {
        const char* what;
        std::string name;
        std::string value;
        std::size_t entries;
        bool fits;
    } cases[] = {
        {"a long value", "*k", long_text, 1, true},
        {"many short ones", "*k", "v", 10000, true},
        {"a long value, named many times", "*k", long_text, 200, false},
        {"a long key on many lines", "*" + std::string(1000, 'k'), std::string(100000, '\n'), 1, false},
        {"warnings of a long name", long_text, "", 200, false},
    };
    for (const auto& row : cases) {
        ReportExchange exchange(m_path, report_deadline(10));
        const Descriptor peer = accept();
        Bytes bytes = packet_of(0, {{row.name, row.value}});
        const Bytes entry(bytes.end() - packet::ENTRY_SIZE, bytes.end());
        for (std::size_t i = 1; i < row.entries; ++i)
            bytes.insert(bytes.end(), entry.begin(), entry.end());
        bytes[packet::COUNT_AT] = static_cast<unsigned char>(row.entries);
        bytes[packet::COUNT_AT + 1] = static_cast<unsigned char>(row.entries >> 8);
        InfoList list;
        list["k"].value = "of the file";
        ASSERT_GT(send_packet(peer.get(), bytes), 0) << row.what;
        ASSERT_EQ(outcome_of(exchange), ReportOutcome::REPLIED) << row.what;
        EXPECT_EQ(merge_report(list, exchange.reply()).has_value(), row.fits) << row.what;
        EXPECT_EQ(list["k"].value == "of the file", !row.fits) << row.what;
    }
}

}  // namespace
