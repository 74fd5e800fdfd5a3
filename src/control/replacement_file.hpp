// The new contents of a settings file, written beside it until they are whole.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

#include "platform/io.hpp"

// Creates ".tmpup" in the metadir and removes it again unless it takes the place of the settings file. Runs
// that write into one metadir at once do so one after the other, and what a run that died left is removed.
class ReplacementFile {
public:
    explicit ReplacementFile(const std::string& metadir);
    ~ReplacementFile();
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;

    // Null when the file couldn't be created.
    std::FILE* stream() const { return m_stream.get(); }

    // Brings everything written to disk and puts the file in the place of `path`. False with errno set when
    // either fails; `path` is then untouched. No more can be written afterwards.
    bool replace(const std::string& path);

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    Descriptor m_metadir;  // locked for as long as the file exists
    std::unique_ptr<std::FILE, Close> m_stream;
    bool m_named = false;
};
