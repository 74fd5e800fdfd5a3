#include "platform/metadata.hpp"

#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>

#include "platform/io.hpp"
#include "temporary_directory.hpp"

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

TEST(Metadir, SmallBufferIsAFailureAndNoCut)
{
    const std::string expected = ".main.metadir";
    for (std::size_t size = 1; size <= expected.size() + 1; ++size) {
        std::vector<char> out(size, '?');
        const bool fits = size > expected.size();
        EXPECT_EQ(metadata_v4_file_to_metadir(out.data(), size, "main"), fits ? 0 : -1) << size;
        EXPECT_EQ(std::string(out.data()), fits ? expected : "") << size;
    }
    EXPECT_EQ(metadata_v4_file_to_metadir(nullptr, 0, "main"), -1);
}

// The entries as text, or the failure's errno.
std::string loaded(const std::string& file)
{
    metadata_v4_context where;
    metadata_v4_context_set_file_location(&where, file.c_str());
    metadata_v4_metadata_context metadata;
    metadata.entries.push_back({"left over", "", 0});
    errno = 0;
    if (metadata_v4_metadata_context_load_metadata_from_file(&metadata, &where, 2, nullptr) < 0)
        return std::strerror(errno);
    std::string text;
    for (std::size_t i = 0; i < metadata.count; ++i) {
        const metadata_v4_entry* entry = metadata_v4_metadata_context_read_entry(&metadata, i);
        const bool whole = entry->stream == METADATA_V4_WHOLE_FILE;
        text += (whole ? "*" : std::to_string(entry->stream)) + "|" + entry->name + "|" + entry->value + "\n";
    }
    EXPECT_EQ(metadata_v4_metadata_context_read_entry(&metadata, metadata.count), nullptr);
    return text;
}

TEST(Metadata, LinesThatSayNothingAreSkipped)
{
    const TemporaryDirectory directory;
    ASSERT_EQ(mkdir_p((directory / ".clip.metadir").c_str(), 0755, -1), 0);
    directory.file(".clip.metadir/metadata", "*\tfile type\tvideo/mpeg\n"
                                             "0\tcodec\twith\ttabs\n"
                                             "*\tempty\t\n"
                                             "*\tno value\n"
                                             "\n"
                                             "-1\tbad stream\tx\n"
                                             "4294967295\treserved stream\tx\n"
                                             "99999999999\tstream out of range\tx\n"
                                             "1 \tblank\tx\n"
                                             "7\tlast\tline without feed");
    EXPECT_EQ(loaded(directory / "clip"),
        "*|file type|video/mpeg\n0|codec|with\ttabs\n*|empty|\n7|last|line without feed\n");
}

TEST(Metadata, FailuresTellWhetherToTryAgain)
{
    const TemporaryDirectory directory;
    EXPECT_EQ(loaded(directory / "none"), std::strerror(ENOENT));
    EXPECT_EQ(loaded(directory / std::string(NAME_MAX + 1, 'n')), std::strerror(ENAMETOOLONG));
    ASSERT_EQ(mkdir_p((directory / ".clip.metadir").c_str(), 0755, -1), 0);
    const std::string path = directory.file(".clip.metadir/metadata", "*\ta\tb\n");
    {
        const Descriptor writer(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
        ASSERT_EQ(lock_exclusively(writer.get()), 0);
        EXPECT_EQ(loaded(directory / "clip"), std::strerror(EAGAIN));
    }
    EXPECT_EQ(loaded(directory / "clip"), "*|a|b\n");
}

}  // namespace
