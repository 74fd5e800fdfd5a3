// What zelm-packets(5) tells of times and amounts; the page and these say the same.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr std::uint64_t UP_LIMIT_US = 10'000'000;        // from its start until it listens
constexpr std::uint64_t ANSWER_LIMIT_US = 15'000'000;    // from a request until its reply
constexpr std::uint64_t END_LIMIT_US = 15'000'000;       // from SIGTERM until it has gone
constexpr std::uint64_t LEAST_LOCK_WAIT_US = 1'000'000;  // for the lock of a metadir
constexpr std::size_t CLIENTS_AT_ONCE = 20;
constexpr std::size_t IDLE_CLIENTS = 300;
constexpr std::size_t REPORTS = 10'000;  // that may make it grow by so many bytes:
constexpr std::size_t GROWTH_LIMIT = std::size_t{4} << 20;

constexpr unsigned seconds_of(std::uint64_t microseconds)
{
    return static_cast<unsigned>(microseconds / 1'000'000);
}
