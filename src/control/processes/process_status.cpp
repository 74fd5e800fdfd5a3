#include "control/processes/process_status.hpp"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

#include "platform/io.hpp"
#include "platform/text.hpp"

namespace {

constexpr std::size_t STATUS_SIZE = 4096;  // more than either file has up to what is looked for
constexpr int PARENT = 4;

}  // namespace

std::optional<std::string> read_start(const std::string& path, std::size_t size)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::string start(size, '\0');
    const ssize_t got = file ? TEMP_FAILURE_RETRY(::read(file.get(), start.data(), size)) : -1;
    if (got < 0)
        return {};
    start.resize(static_cast<std::size_t>(got));
    return start;
}

std::optional<long long> status_number(pid_t process, int field, NameEnd name_end)
{
    const auto line = read_start("/proc/" + std::to_string(process) + "/stat", STATUS_SIZE);
    if (!line)
        return {};
    const std::size_t end = name_end == NameEnd::FIRST ? line->find(')') : line->rfind(')');
    if (end == std::string::npos)
        return 0;
    const char* at = line->c_str() + end + 1;
    for (int each = 3; each < field; ++each)
        skiptospc(at);
    return std::strtoll(at, nullptr, 10);
}

pid_t parent_of(pid_t process)
{
    return static_cast<pid_t>(status_number(process, PARENT, NameEnd::LAST).value_or(0));
}

std::vector<uid_t> users_of(const char* proc, pid_t process)
{
    constexpr char USERS[] = "\nUid:";
    const auto status =
        read_start(std::string(proc) + "/" + std::to_string(process) + "/status", STATUS_SIZE);
    const std::size_t line = status ? status->find(USERS) : std::string::npos;
    if (line == std::string::npos)
        return {};
    std::vector<uid_t> users;
    const char* at = status->c_str() + line + sizeof USERS - 1;
    for (char* end = nullptr; users.size() < 3; at = end) {
        const auto user = static_cast<uid_t>(std::strtoul(at, &end, 10));
        if (end == at)
            return {};
        users.push_back(user);
    }
    return users;
}
