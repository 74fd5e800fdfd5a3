// How somebody else's child ended, asked at any moment of its being reaped.
#include "zelmctl/ending.hpp"

#include <atomic>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "platform/io.hpp"

namespace {

constexpr int RUNS = 1000;  // some of which ask in the one moment that matters
constexpr int DELAYS = 500;
constexpr int PATIENCE_MS = 10'000;
constexpr int STATUS = 5;

TEST(Ending, IsToldWheneverTheParentTakesNote)
{
    for (int run = 0; run < RUNS; ++run) {
        const pid_t child = ::fork();
        if (child == 0)
            ::_exit(STATUS);
        const Descriptor held(static_cast<int>(::syscall(SYS_pidfd_open, child, 0)));
        siginfo_t ended{};
        ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT), 0);
        std::atomic<bool> is_ready = false;
        std::thread parent([&] {
            is_ready = true;
            ::waitpid(child, nullptr, 0);
        });
        while (!is_ready) {
        }
        for (volatile int delay = run % DELAYS * 10; delay > 0;)
            delay = delay - 1;
        const std::optional<int> ending = ending_of(held.get(), PATIENCE_MS);
        parent.join();
        if (run == 0 && !ending_of(held.get(), 0))
            GTEST_SKIP() << "this kernel doesn't tell";
        EXPECT_TRUE(ending && WEXITSTATUS(*ending) == STATUS) << "run " << run;
    }
}

}  // namespace
