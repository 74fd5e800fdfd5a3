// The kernel's tables in forms that this machine doesn't show: a listing of sockets or processes that can't
// be understood must leave items stopped, never take the wrong process for a driver.
#include "control/processes/socket_holders.hpp"
#include "control/processes/socket_table.hpp"

#include <filesystem>
#include <gtest/gtest.h>

#include "unit/temporary_directory.hpp"

namespace fs = std::filesystem;

namespace {

// What a table of this text tells of the path "/s": the inodes of its rows, each with a blank behind it.
std::string inodes_in(const std::string& table, SocketTableHeader* header = nullptr)
{
    const TemporaryDirectory directory;
    ProcNetUnixSnapshot snapshot;
    std::string inodes;
    const SocketTableHeader taken = snapshot.take(directory.file("unix", table).c_str());
    snapshot.for_each([&](std::string_view path, unsigned int inode) {
        if (path == "/s")
            inodes += std::to_string(inode) + " ";
    });
    if (header)
        *header = taken;
    return inodes;
}

// So many columns named c.
std::string columns(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "c ";
    return text;
}

TEST(ProcSnapshots, SocketsAreFoundWhateverTheTableLooksLike)
{
    const std::string head = "Num RefCount Protocol Flags Type St Inode Path\n";
    const struct {
        const char* what;
        std::string table;
        const char* inodes;
    } rows[] = {
        {"as the kernel writes it", head + "0000: 2 0 10000 1 01   77 /s\n", "77 "},
        {"other columns first", "Path Inode\n/s 78\n", "78 "},
        {"other case, runs of blanks", "  INODE   path \n  79    /s\n", "79 "},
        {"the last of two columns of a name", "Inode Path Inode\n1 /s 80\n", "80 "},
        {"all rows of a path, in their order", "Inode Path\n0 /s\n7 /t\n82 /s\n6\n81 /s\n", "0 82 81 "},
        {"no line end at the end", "Inode Path\n83 /s", "83 "},
        {"octal and hexadecimal", "Inode Path\n0x10 /s\n", "16 "},
        {"an inode that is no number", "Inode Path\nx /s\n", "0 "},
        {"rows without a path, or with nothing", "Inode Path\n5\n\n84 /s\n", "84 "},
        {"a path that only begins with the one", "Inode Path\n85 /s2\n86 /s/\n", ""},
        {"a path with a blank keeps its first word", "Inode Path\n87 /s and more\n", "87 "},
        {"the last field that a row may have", columns(61) + "Inode Path\n" + columns(61) + "88 /s\n", "88 "},
        {"a path behind that", columns(62) + "Inode Path\n" + columns(62) + "89 /s\n", ""},
        {"an inode behind that", "Path " + columns(62) + "Inode\n/s " + columns(62) + "90\n", ""},
        {"a row longer than a line may be", "Inode Path\n91 /" + std::string(1500, 'x') + "\n92 /s\n", "92 "},
    };
    for (const auto& row : rows)
        EXPECT_EQ(inodes_in(row.table), row.inodes) << row.what;
}

TEST(ProcSnapshots, AHeaderThatLacksAColumnLeavesTheTableEmpty)
{
    using Fault = SocketTableHeader::Fault;
    const struct {
        std::string table;
        Fault fault;
        std::size_t columns;
    } rows[] = {
        {"Num Path\n1 /s\n", Fault::NO_INODE_OR_PATH, 2},
        {"Inode  Paths\n1 /s\n", Fault::NO_INODE_OR_PATH, 2},
        {"\n1 /s\n", Fault::NO_INODE_OR_PATH, 0},
        {"", Fault::NO_INODE_OR_PATH, 0},
        {columns(64) + "Inode Path\n1 /s\n", Fault::TOO_FAR_OUT, 66},
        {"Inode " + columns(63) + "Path\n1 /s\n", Fault::TOO_FAR_OUT, 65},
    };
    for (const auto& row : rows) {
        SocketTableHeader header;
        EXPECT_EQ(inodes_in(row.table, &header), "") << row.table;
        EXPECT_EQ(header.fault, row.fault) << row.table;
        EXPECT_EQ(header.columns.size(), row.columns) << row.table;
    }
}

TEST(ProcSnapshots, TheHolderOfASocketIsTheHighestProcess)
{
    const std::pair<const char*, const char*> descriptors[] = {{"9/fd/3", "socket:[100]"},
        {"10/fd/4", "socket:[100]"}, {"11/fd/3", "socket:[200]"}, {"12/fd/5", "socket:[300]x"},
        {"12/fd/6", "socket:[]"}, {"12/fd/7", "socket:[400"}, {"12/fd/8", "xsocket:[400]"},
        {"12/fd/9x", "socket:[500]"}, {"13x/fd/3", "socket:[500]"}, {"0/fd/3", "socket:[500]"},
        {"self/fd/3", "socket:[500]"}, {"8/fd/0", "socket:[600]"}, {"8/fd/1", "socket:[600]"}};
    const TemporaryDirectory directory;
    for (const auto& [name, target] : descriptors) {
        fs::create_directories(fs::path(directory / name).parent_path());
        fs::create_symlink(target, directory / name);
    }
    fs::create_directories(directory / "14");
    directory.file("15", "no directory");
    directory.file("11/fd/9", "no link");

    const std::string proc = directory / "";
    const std::pair<unsigned int, pid_t> rows[] = {
        {100, 10}, {200, 11}, {300, 12}, {400, 0}, {500, 0}, {600, 8}};
    std::vector<SoughtSocket> all;
    for (const auto& [inode, pid] : rows) {
        all.insert(all.end(), 2, {inode, true});
        EXPECT_EQ(pid != 0, holds_socket(proc.c_str(), pid != 0 ? pid : 12, inode)) << inode;
    }
    find_holders(proc.c_str(), all);
    for (std::size_t i = 0; i < all.size(); ++i)
        EXPECT_EQ(all[i].holder, rows[i / 2].second) << all[i].inode;
    EXPECT_FALSE(holds_socket(proc.c_str(), 9, 200));

    std::vector<SoughtSocket> some{{100, false}, {200, true}, {600, false}};
    find_holders(proc.c_str(), some);
    EXPECT_EQ(some[1].holder, 11);
    EXPECT_EQ(some[2].holder, 0) << "what doesn't decide is not looked for any longer";
}

}  // namespace
