#include "zelmctl/ending.hpp"

#include <cerrno>
#include <cstdint>
#include <poll.h>
#include <sys/ioctl.h>

namespace {

// Newer than the headers of the C library.
struct ProcessInfo {
    std::uint64_t mask;
    std::uint64_t cgroup;
    std::uint32_t ids[11];
    std::int32_t exit_code;
};
constexpr std::uint64_t EXIT = 1U << 3;
constexpr unsigned long GET_INFO = _IOWR(0xFF, 11, ProcessInfo);

}  // namespace

std::optional<int> ending_of(int process_descriptor, int patience_ms)
{
    ProcessInfo info{};
    const auto is_told = [&] {
        info.mask = EXIT;
        errno = 0;
        return ::ioctl(process_descriptor, GET_INFO, &info) == 0 && (info.mask & EXIT) != 0;
    };
    if (is_told())
        return info.exit_code;
    // While the process is being reaped, the kernel may for a moment know neither it nor its ending.
    if (errno != 0 && errno != ESRCH)
        return {};  // the kernel has no such answer
    pollfd reaped{process_descriptor, 0, 0};
    ::poll(&reaped, 1, patience_ms);
    return is_told() ? std::optional(info.exit_code) : std::nullopt;
}
