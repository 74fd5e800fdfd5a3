// The new contents of a settings file, kept apart until they are whole.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "control/items/whole_file.hpp"

// Is that a name that a replacement has for a moment? No item may be called so.
bool is_replacement_name(std::string_view name);

// Removes what a run that died has left of a replacement beside the item with that metadir.
void remove_left_replacement(int item_directory, const std::string& metadir_name);

// Is written without a name in the metadir, gets a hidden one beside the settings file when it is whole, and
// changes places with that: there the metadir's owner, who may be anybody, can put nothing in its stead. Runs
// that change one item at once do so one after the other: each has the name only for as long as the exchange
// takes. What a run that died left under it is removed.
class ReplacementFile {
public:
    // Both directories must stay open as long as the file; the metadir has that name in the other one.
    ReplacementFile(int item_directory, int metadir, const std::string& metadir_name);

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
    bool swap(const std::string& item) const;
    bool remove_old(const std::string& item);

    int m_directory;
    std::string m_name;
    WholeFile m_file;
    std::unique_ptr<std::FILE, Close> m_stream;
};
