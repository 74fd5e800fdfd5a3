// The new contents of a settings file, written beside it until they are whole.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <sys/types.h>

#include "control/items/whole_file.hpp"

// Is written without a name in the metadir, becomes ".tmpup" there when it is whole, and changes places with
// the settings file. Runs that write into one metadir at once do so one after the other: each has that name
// only for as long as the exchange takes. What a run that died left under it is removed.
class ReplacementFile {
public:
    // Both directories must stay open as long as the file.
    ReplacementFile(int metadir, int item_directory);

    // Null when the file couldn't be created.
    std::FILE* stream() const { return m_stream.get(); }

    // Brings everything written to disk and puts the file in the place of the settings file `item`. False
    // with errno set when either fails, also when that file is no longer there: nothing has then changed. No
    // more can be written afterwards.
    bool replace(const std::string& item);

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    bool take_name();
    bool exchange(const std::string& item);
    bool remove_old(const std::string& item);
    bool is_in_place(const std::string& item) const;

    int m_metadir;
    int m_item_directory;
    WholeFile m_file;
    std::unique_ptr<std::FILE, Close> m_stream;
};
