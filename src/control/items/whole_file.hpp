// A new file that gets its name once it is whole and on disk, so that a run that dies half-way leaves nothing
// under the name.
#pragma once

#include <string>
#include <sys/types.h>

#include "platform/io.hpp"

class WholeFile {
public:
    // Opens a file without a name in the directory, for writing, with the mode less the umask. The directory
    // must stay open as long as the file. Where the file system has no such files it is made under the name
    // `draft`, exclusively. False in a test, with errno set, when neither works.
    WholeFile(int directory, std::string draft, mode_t mode);

    // A file that has not got its name is gone.
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    explicit operator bool() const { return static_cast<bool>(m_file); }
    int get() const { return m_file.get(); }

    // Brings the contents to disk. False with errno set.
    bool flush();

    // Gives the file its name, unless that is taken. False with errno set.
    bool publish(const std::string& name);

private:
    bool give_name(const std::string& name);

    int m_directory;
    std::string m_draft;  // the name that it has in the meantime, if any
    Descriptor m_file;
};
