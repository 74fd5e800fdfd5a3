#include "platform/metadata.hpp"

#include <climits>
#include <cstring>
#include <gtest/gtest.h>

namespace {

std::string metadir_of(const std::string& file)
{
    char out[PATH_MAX + 1] = "untouched";
    const int result = metadata_v4_file_to_metadir(out, sizeof out, file.c_str());
    EXPECT_EQ(result, *out ? 0 : -1) << file;
    return out;
}

TEST(Metadir, NameFollowsFromTheNameOfTheFileAlone)
{
    const std::string longest(NAME_MAX - std::strlen("..metadir"), 'n');
    std::string blanks;
    for (int i = 0; i < 64; ++i)
        blanks += "%20";
    const std::pair<std::string, std::string> cases[] = {
        {"main", ".main.metadir"},
        {"/mnt/main/tv/outputs/main", "/mnt/main/tv/outputs/.main.metadir"},
        {"a b/c d", "a b/.c%20d.metadir"},
        {"tab\tand\nfeed\x7f", ".tab%09and%0Afeed%7F.metadir"},
        {"100%", ".100%25.metadir"},
        {"100%25", ".100%2525.metadir"},
        {"caf\xc3\xa9", ".caf\xc3\xa9.metadir"},
        {"...", ".....metadir"},
        {longest, "." + longest + ".metadir"},
        // No file has these names, and these would be no names of a file.
        {"", ""},
        {"/", ""},
        {"dir/", ""},
        {".", ""},
        {"/mnt/..", ""},
        {std::string(NAME_MAX + 1, 'n'), ""},
        // Where the whole name has no room.
        {longest + "n", "." + std::string(64, 'n') + "%-62FE8A55AB382889.metadir"},
        {"d/" + std::string(85, ' '), "d/." + blanks + "%-9C6A75FEC2907EEF.metadir"},
    };
    for (const auto& [file, metadir] : cases)
        EXPECT_EQ(metadir_of(file), metadir) << file;
}

}  // namespace
