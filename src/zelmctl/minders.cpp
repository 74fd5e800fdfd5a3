#include "zelmctl/minders.hpp"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "control/commands/delegated_run.hpp"
#include "zelmctl/descriptor_limit.hpp"

namespace {

// As it goes through the pipe, in one piece.
struct MinderRecord {
    std::size_t item;
    MinderReport::What what;
    int value;
    std::size_t said_size;
    char said[1024];
};
static_assert(sizeof(MinderRecord) <= PIPE_BUF);

// Takes the words of the command, and those of its children until they are somebody else's program.
class SaidWords {
public:
    SaidWords() : m_file(::memfd_create("words", MFD_CLOEXEC)), m_stream(::fdopen(m_file, "w"))
    {
        if (!m_stream)
            ::_exit(1);
        std::setvbuf(m_stream, nullptr, _IONBF, 0);
    }
    std::FILE* stream() const { return m_stream; }

    std::size_t read(char* to, std::size_t size) const
    {
        const ssize_t got = ::pread(m_file, to, size, 0);
        return got > 0 ? static_cast<std::size_t>(got) : 0;
    }

private:
    int m_file;
    std::FILE* m_stream;
};

// How the driver ended, or its supervisor, which goes on in the background and has a child of the tool's
// beside it.
std::optional<int> status_of_children()
{
    std::vector<int> statuses;
    int status = 0;
    while (TEMP_FAILURE_RETRY(::waitpid(-1, &status, 0)) > 0)
        statuses.push_back(status);
    const bool all_failed = std::find(statuses.begin(), statuses.end(), 0) == statuses.end();
    if (statuses.empty() || (statuses.size() > 1 && !all_failed))
        return {};
    return statuses.front();
}

[[noreturn]] void mind(std::size_t number, const std::string& item, Minders::Command command, int reports)
{
    restore_descriptor_limit();
    const SaidWords words;
    say_to(words.stream());
    const auto report = [&](MinderReport::What what, int value) {
        MinderRecord record{number, what, value, 0, {}};
        record.said_size = words.read(record.said, sizeof record.said);
        if (TEMP_FAILURE_RETRY(::write(reports, &record, sizeof record)) != sizeof record)
            ::_exit(1);
    };
    report(MinderReport::What::DONE, command(item));
    if (const auto status = status_of_children())
        report(MinderReport::What::ENDED, *status);
    ::_exit(0);
}

}  // namespace

Minders::Minders()
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return;
    m_reports.reset(ends[0]);
    m_minders_end.reset(ends[1]);
    ::fcntl(ends[0], F_SETFL, O_NONBLOCK);
}

bool Minders::fork(std::size_t number, const std::string& item, Command command) const
{
    const pid_t parent = ::getpid();
    const pid_t minder = m_reports ? ::fork() : -1;
    if (minder != 0)
        return minder > 0;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent)
        ::_exit(1);
    mind(number, item, command, m_minders_end.get());
}

std::vector<MinderReport> Minders::read() const
{
    std::vector<MinderReport> reports;
    MinderRecord record;
    while (TEMP_FAILURE_RETRY(::read(m_reports.get(), &record, sizeof record)) == sizeof record)
        reports.push_back({record.item, record.what, record.value, {record.said, record.said_size}});
    return reports;
}
