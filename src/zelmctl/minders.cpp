#include "zelmctl/minders.hpp"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "control/commands/delegated_run.hpp"
#include "control/commands/start_item.hpp"
#include "control/commands/stop_item.hpp"
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

// Takes the words of the command, and those of its children until they are somebody else's program. Where
// there is no room for them, they go to standard error.
class SaidWords {
public:
    SaidWords()
    {
        Descriptor file(::memfd_create("words", MFD_CLOEXEC));
        // The numbers that the caller's limit allows are for the command.
        const int above = ::fcntl(file.get(), F_DUPFD_CLOEXEC, descriptor_limit_of_caller());
        if (above >= 0)
            file.reset(above);
        if (std::FILE* stream = ::fdopen(file.get(), "w")) {
            m_file = file.release();
            m_stream = stream;
            std::setvbuf(m_stream, nullptr, _IONBF, 0);
        }
    }
    std::FILE* stream() const { return m_stream; }

    std::size_t read(char* to, std::size_t size) const
    {
        const ssize_t got = ::pread(m_file, to, size, 0);
        return got > 0 ? static_cast<std::size_t>(got) : 0;
    }

private:
    int m_file = -1;
    std::FILE* m_stream = stderr;
};

// What a minder does: the work, and the reports of it.
class Minder {
public:
    Minder(int reports, std::size_t tasks) : m_reports(reports), m_words(tasks)
    {
        restore_descriptor_limit();
    }

    void start(const std::vector<Minders::Task>& tasks)
    {
        std::vector<StartedProcess> started(tasks.size());
        for (std::size_t i = 0; i < tasks.size(); ++i) {
            say_to(m_words[i].stream());
            const int result = start_item(tasks[i].item, started[i]);
            report(tasks[i], MinderReport::What::DONE, result, m_words[i]);
        }
        int status = 0;
        pid_t pid = 0;
        while ((pid = ::waitpid(-1, &status, 0)) > 0 || errno == EINTR)
            for (std::size_t i = 0; i < tasks.size(); ++i)
                if (pid == started[i].pid && (status != 0 || !started[i].is_supervisor))
                    report(tasks[i], MinderReport::What::ENDED, status, m_words[i]);
    }

    void stop(const Minders::Task& task)
    {
        say_to(m_words.front().stream());
        report(task, MinderReport::What::DONE, do_stop_item(task.item), m_words.front());
    }

private:
    void report(const Minders::Task& task, MinderReport::What what, int value, const SaidWords& words) const
    {
        MinderRecord record{task.number, what, value, 0, {}};
        record.said_size = words.read(record.said, sizeof record.said);
        if (TEMP_FAILURE_RETRY(::write(m_reports, &record, sizeof record)) != sizeof record)
            ::_exit(1);
    }

    int m_reports;
    std::vector<SaidWords> m_words;
};

// Forks a minder that does that, and ends with this process at the latest.
template <typename Work> bool fork_minder(const Work& work)
{
    const pid_t parent = ::getpid();
    const pid_t minder = ::fork();
    if (minder != 0)
        return minder > 0;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() == parent)
        work();
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

bool Minders::start(const std::vector<Task>& tasks) const
{
    return fork_minder([&] { Minder(m_minders_end.get(), tasks.size()).start(tasks); });
}

bool Minders::stop(const Task& task) const
{
    return fork_minder([&] { Minder(m_minders_end.get(), 1).stop(task); });
}

std::vector<MinderReport> Minders::read() const
{
    std::vector<MinderReport> reports;
    MinderRecord record;
    while (TEMP_FAILURE_RETRY(::read(m_reports.get(), &record, sizeof record)) == sizeof record)
        reports.push_back({record.item, record.what, record.value, {record.said, record.said_size}});
    return reports;
}
