// A directory of a test's own, gone with everything in it when the test ends.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

class TemporaryDirectory {
public:
    TemporaryDirectory()
    {
        char name[] = "/tmp/platform-test.XXXXXX";
        m_path = ::mkdtemp(name) ? name : "";
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    ~TemporaryDirectory()
    {
        std::error_code ignored;
        if (!m_path.empty())
            std::filesystem::remove_all(m_path, ignored);
    }

    std::string operator/(const std::string& name) const { return m_path + "/" + name; }

    // The path of a new file of that content.
    std::string file(const std::string& name, std::string_view content) const
    {
        std::ofstream(*this / name, std::ios::binary) << content;
        return *this / name;
    }

private:
    std::string m_path;
};
