// The stand-in for every driver program. It goes by the name under which it is started.

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "driver.hpp"
#include "platform/io.hpp"
#include "platform/metadata.hpp"
#include "platform/time.hpp"
#include "witness.hpp"

namespace {

// "zelm_out_x11" drives x11 and "zelm_video_passthru" video_passthru.
std::string driver_word(std::string_view program)
{
    program.remove_prefix(program.rfind('/') + 1);
    if (program == "zelm_rendermgr")
        return "channel";
    for (const std::string_view prefix : {"zelm_out_", "zelm_"})
        if (program.starts_with(prefix))
            return std::string(program.substr(prefix.size()));
    return std::string(program);
}

const char* settings_path(int argc, const char* const* argv)
{
    for (int i = 1; i + 1 < argc; ++i)
        if (std::string_view(argv[i]) == "--file")
            return argv[i + 1];
    return nullptr;
}

int failed(const char* program, const char* what, const std::string& about)
{
    std::fprintf(stderr, "%s: %s %s, %s\n", program, what, about.c_str(), std::strerror(errno));
    return 1;
}

int run(const char* program, const char* path, const std::string& witness)
{
    DriverState state;
    state.driver = driver_word(program);
    state.started_us = monotonic_clock_us();
    if (!read_item_settings(path, state.settings))
        return failed(program, "cannot read", path);
    const std::string witness_path(setting_text(state.settings, "sim witness"));
    if (!witness_path.empty() && !write_witness(witness_path, witness))
        return failed(program, "cannot write", witness_path);
    char metadir[PATH_MAX + 1];
    if (metadata_v4_file_to_metadir(metadir, sizeof metadir, path) != 0)
        return failed(program, "no metadir for", path);
    if (mkdir_p(metadir, 0777, -1) != 0)
        return failed(program, "cannot make", metadir);
    Driver driver(std::move(state));
    if (!driver.open(metadir))
        return failed(program, "cannot listen in", metadir);
    std::printf("%s: serving %s\n", program, path);
    std::fflush(stdout);
    driver.serve();
    std::printf("%s: ending\n", program);
    return 0;
}

}  // namespace

int main(int argc, char** argv)
{
    const std::string witness = collect_witness(argc, argv);
    const char* const path = settings_path(argc, argv);
    if (path)
        return run(argv[0], path, witness);
    std::fprintf(stderr, "usage: %s --file SETTINGS\n", argc > 0 ? argv[0] : "driver");
    return 1;
}
