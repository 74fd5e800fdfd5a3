// Gives every target the inputs that were kept for it. One that crashes ends the process.
#include "fuzz/targets.hpp"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

int main(int argc, char** argv)
{
    const std::filesystem::path corpus = argc > 1 ? argv[1] : "corpus";
    int replayed = 0;
    for (const auto& target : FUZZ_TARGETS)
        for (const auto& entry : std::filesystem::directory_iterator(corpus / target.name)) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string bytes{std::istreambuf_iterator<char>(file), {}};
            target.parse(bytes);
            ++replayed;
        }
    std::printf("%d inputs replayed\n", replayed);
    return replayed > 0 ? 0 : 1;
}
