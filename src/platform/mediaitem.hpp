// A driver's manifest: what settings it takes. zelm-manifest(5) tells the format of the file.
#pragma once

#include <cstddef>
#include <map>
#include <string>

struct zelm_config_entry {
    char letter = 0;  // 0 when the manifest gives none
    bool quick_summary = true;
    bool s_flag = false;
    bool nogui_flag = false;
    std::string default_value;
    std::string description;
    std::string ui;  // JSON text
};

// Why a line breaks a manifest.
enum class ManifestFault {
    NO_MEMBER,     // neither a section nor a member, nor empty or a comment
    NO_SECTION,    // a member in front of the first section
    OPEN_SECTION,  // "[" without "]"
    SECOND_SECTION,
    UNKNOWN_MEMBER,
    UNKNOWN_FLAG,
    LONG_LETTER,
};

// The first line that breaks a manifest.
struct BrokenLine {
    ManifestFault fault;
    std::size_t number;  // from 1 up
    bool is_rest;        // of a line that is too long
    std::string text;
};

class zelm_config_list {
public:
    // Descriptions and presentation hints are read if this is 1 and skipped if it is 0.
    int with_texts = 0;

    // Reads the manifest at the path. One that can't be read, or is broken anywhere, leaves the list
    // empty; the result is then -1, otherwise 0.
    int load_arglist(const char* path);

    // The same of an open file. What broke it can be had.
    int load_arglist(int file, BrokenLine* broken = nullptr);

    // The entries in the byte order of their keys.
    auto begin() const { return m_entries.begin(); }
    auto end() const { return m_entries.end(); }
    std::size_t size() const { return m_entries.size(); }

private:
    std::map<std::string, zelm_config_entry, std::less<>> m_entries;
};
