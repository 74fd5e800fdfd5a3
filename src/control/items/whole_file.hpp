// A new file that gets its name once it is whole and on disk, so that a run that dies half-way leaves nothing
// under the name.
#pragma once

#include <string>
#include <sys/types.h>

#include "platform/io.hpp"

class WholeFile {
public:
    // Opens a file without a name in the directory, for writing, with the mode less the umask; in memory
    // where the file system has no such files. False in a test, with errno set, when the directory takes
    // none.
    WholeFile(int directory, mode_t mode);

    explicit operator bool() const { return static_cast<bool>(m_file); }
    int get() const { return m_file.get(); }

    // Brings the contents to disk. False with errno set.
    bool flush();

    // Gives the file its name, unless that is taken, in a directory of the same file system. Where a file
    // that is whole already can't get one, a copy is written under it; a copy that fails is removed. False
    // with errno set.
    bool publish(int directory, const std::string& name);

private:
    bool link(int directory, const std::string& name) const;
    bool copy(int directory, const std::string& name) const;

    mode_t m_mode;
    bool m_is_in_memory = false;
    Descriptor m_file;
};
