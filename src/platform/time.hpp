// The clock of every deadline.
#pragma once

#include <cstdint>

// Microseconds on the monotonic clock.
std::uint64_t monotonic_clock_us();
