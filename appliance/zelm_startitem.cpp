// The stand-in for the program that prepares an item: it finds out what a file holds and writes that into
// the file's metadir.

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <magic.h>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/io.hpp"
#include "platform/metadata.hpp"

namespace {

// What tests leave for it: how many seconds to sleep first, and where to say how it was called.
constexpr char SLEEP_PATH[] = "/run/zelm_startitem.sleep";
constexpr char LOG_PATH[] = "/run/zelm_startitem.log";

struct Arguments {
    const char* file = nullptr;
    bool identify = false;
    bool create_meta = false;
};

Arguments read_arguments(int argc, const char* const* argv)
{
    Arguments arguments;
    for (int i = 1; i < argc; ++i) {
        const std::string_view word = argv[i];
        if (word == "--file" && i + 1 < argc)
            arguments.file = argv[++i];
        arguments.identify = arguments.identify || word == "--identify";
        arguments.create_meta = arguments.create_meta || word == "--create-meta";
    }
    return arguments;
}

// With the descriptors that it was handed, of which there should be none but the standard ones.
void log_call(int argc, const char* const* argv)
{
    std::string line;
    for (int i = 0; i < argc; ++i)
        line += std::string(i > 0 ? " " : "") + argv[i];
    for (int fd = STDERR_FILENO + 1; fd < 64; ++fd)
        if (::fcntl(fd, F_GETFD) >= 0)
            line += " with descriptor " + std::to_string(fd);
    const Descriptor log(::open(LOG_PATH, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666));
    if (log)
        write_whole(log.get(), line + "\n");
}

void sleep_if_told()
{
    const Descriptor told(::open(SLEEP_PATH, O_RDONLY | O_CLOEXEC));
    char seconds[16] = "";
    if (told && ::read(told.get(), seconds, sizeof seconds - 1) > 0)
        ::sleep(static_cast<unsigned int>(std::strtoul(seconds, nullptr, 10)));
}

struct MagicClose {
    void operator()(magic_set* magic) const { ::magic_close(magic); }
};

// Empty when it can't be found out.
std::string file_type(const char* path)
{
    const std::unique_ptr<magic_set, MagicClose> magic(::magic_open(MAGIC_MIME_TYPE | MAGIC_SYMLINK));
    if (!magic || ::magic_load(magic.get(), nullptr) != 0)
        return {};
    const char* const type = ::magic_file(magic.get(), path);
    return type ? type : "";
}

std::string metadata_of(const char* path)
{
    std::string text = "*\tfile type\t" + file_type(path) + "\n";
    struct stat state {};
    if (::stat(path, &state) == 0 && S_ISREG(state.st_mode))
        text += "*\tfile size\t" + std::to_string(state.st_size) + "\n";
    return text;
}

// Readers keep away as long as the lock is held, so the file may be emptied under it.
bool store_metadata(const std::string& metadir, const std::string& text)
{
    const Descriptor file(
        ::open((metadir + "/" + METADATA_ENTRY).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    return file && lock_exclusively(file.get()) == 0 && ::ftruncate(file.get(), 0) == 0 &&
           write_whole(file.get(), text);
}

int failed(const char* what, const char* path)
{
    std::fprintf(stderr, "zelm_startitem: %s %s, %s\n", what, path, std::strerror(errno));
    return 1;
}

}  // namespace

int main(int argc, char** argv)
{
    log_call(argc, argv);
    sleep_if_told();
    const Arguments arguments = read_arguments(argc, argv);
    if (!arguments.file) {
        std::fputs("usage: zelm_startitem --file PATH [--identify] [--create-meta]\n", stderr);
        return 1;
    }
    char metadir[PATH_MAX + 1];
    if (metadata_v4_file_to_metadir(metadir, sizeof metadir, arguments.file) != 0)
        return failed("no metadir for", arguments.file);
    if (arguments.create_meta && mkdir_p(metadir, 0777, -1) != 0)
        return failed("cannot make", metadir);
    if (arguments.identify && !store_metadata(metadir, metadata_of(arguments.file)))
        return failed("cannot write the metadata in", metadir);
    return 0;
}
