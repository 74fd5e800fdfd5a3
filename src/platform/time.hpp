// The clock of every deadline.
#pragma once

#include <cstdint>
#include <limits>
#include <poll.h>
#include <span>

// Microseconds on the monotonic clock.
std::uint64_t monotonic_clock_us();

// A deadline that doesn't come.
constexpr std::uint64_t NO_DEADLINE = std::numeric_limits<std::uint64_t>::max();

// poll(2) until a time on that clock. How many descriptors are ready; 0 when the deadline came or a signal
// did, and below 0 with errno set on failure, both without events.
int poll_until(std::span<pollfd> awaited, std::uint64_t deadline_us);
