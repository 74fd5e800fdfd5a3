#include "platform/io.hpp"

#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "temporary_directory.hpp"

namespace {

using Lines = std::vector<std::string>;

Lines lines_of(int fd, bool& failed)
{
    LineReader reader(fd);
    Lines lines;
    for (std::string_view line; reader.next(line);)
        lines.emplace_back(line);
    failed = reader.failed();
    return lines;
}

Lines lines_of(const std::string& content)
{
    const TemporaryDirectory directory;
    const Descriptor file(::open(directory.file("f", content).c_str(), O_RDONLY | O_CLOEXEC));
    bool failed = true;
    Lines lines = lines_of(file.get(), failed);
    EXPECT_FALSE(failed);
    return lines;
}

std::string xs(std::size_t count)
{
    return std::string(count, 'x');
}

TEST(LineReader, CutsLinesWhereEverySettingsReaderCutsThem)
{
    const std::string nul("a\0b", 3);
    const std::pair<std::string, Lines> cases[] = {
        {"", {}},
        {"a", {"a"}},
        {"a\n", {"a"}},
        {"\n\na\n", {"", "", "a"}},
        {"a\r\n", {"a\r"}},
        {nul + "\n" + nul, {nul, nul}},
        {xs(1021) + "\nb\n", {xs(1021), "b"}},
        {xs(1022) + "\nb\n", {xs(1022), "", "b"}},
        {xs(1022), {xs(1022)}},
        {xs(1023) + "\nb\n", {xs(1022), "x", "b"}},
        {xs(5000) + "\nb", {xs(1022), xs(1022), xs(1022), xs(1022), xs(912), "b"}},
    };
    for (const auto& [content, expected] : cases)
        EXPECT_EQ(lines_of(content), expected) << content.size() << " bytes";
}

TEST(LineReader, NoPositionInTheBufferLosesOrDoublesAByte)
{
    for (std::size_t length = 1; length <= 1021; length += 17) {
        std::string content;
        Lines expected;
        for (std::size_t i = 0; content.size() < 3 * 4096; ++i) {
            expected.push_back(std::string(1 + (length + i) % 1021, static_cast<char>('a' + i % 26)));
            content += expected.back() + "\n";
        }
        ASSERT_EQ(lines_of(content), expected) << length;
    }
}

TEST(LineReader, TakesAStreamThatComesInPieces)
{
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    const Descriptor from(ends[0]);
    Descriptor into(ends[1]);
    LineReader reader(from.get());
    std::string_view line;
    ASSERT_EQ(::write(into.get(), "one\ntw", 6), 6);
    ASSERT_TRUE(reader.next(line));
    EXPECT_EQ(line, "one");
    ASSERT_EQ(::write(into.get(), "o\nthree", 7), 7);
    into.reset();
    for (const char* expected : {"two", "three"}) {
        ASSERT_TRUE(reader.next(line));
        EXPECT_EQ(line, expected);
    }
    EXPECT_FALSE(reader.next(line));
}

TEST(LineReader, ReadErrorIsNoEndOfFile)
{
    const Descriptor directory(::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    bool failed = false;
    EXPECT_EQ(lines_of(directory.get(), failed), Lines());
    EXPECT_TRUE(failed);
}

TEST(MkdirP, MakesWhatIsMissingAndRefusesWhatIsInTheWay)
{
    const TemporaryDirectory directory;
    const std::string file = directory.file("file", "");
    const std::pair<std::string, int> cases[] = {{directory / "a/b/c", 0}, {directory / "a/b/c", 0},
        {directory / "a//d/", 0}, {file, EEXIST}, {file + "/below", ENOTDIR}, {"", ENOENT}};
    for (const auto& [path, error] : cases) {
        errno = 0;
        EXPECT_EQ(mkdir_p(path.c_str(), 0777, -1), error == 0 ? 0 : -1) << path;
        EXPECT_TRUE(error == 0 ? std::filesystem::is_directory(path) : errno == error) << path;
    }
}

}  // namespace
