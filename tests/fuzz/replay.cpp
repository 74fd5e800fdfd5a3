// Gives every target the inputs that were kept for it in each of the directories named, or made. One that
// crashes ends the process.
#include "fuzz/targets.hpp"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>

int main(int argc, char** argv)
{
    int replayed = 0;
    for (const std::filesystem::path directory : std::span(argv + 1, argv + argc))
        for (const auto& target : FUZZ_TARGETS) {
            std::error_code none;
            for (const auto& entry : std::filesystem::directory_iterator(directory / target.name, none)) {
                std::fprintf(stderr, "%s\n", entry.path().c_str());
                std::ifstream file(entry.path(), std::ios::binary);
                const std::string bytes{std::istreambuf_iterator<char>(file), {}};
                target.parse(bytes);
                ++replayed;
            }
        }
    std::printf("%d inputs replayed\n", replayed);
    return replayed > 0 ? 0 : 1;
}
