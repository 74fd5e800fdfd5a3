#include "control/run_state.hpp"

#include <gtest/gtest.h>

#include "platform/time.hpp"

TEST(RunState, AWaitWithoutALimitOfItsOwnEndsAfterFifteenSeconds)
{
    const std::uint64_t before = monotonic_clock_us();
    reset_timeout();
    EXPECT_GE(next_timeout, before + 15000000);
    EXPECT_LE(next_timeout, monotonic_clock_us() + 15000000);
    next_timeout = 0;
}
