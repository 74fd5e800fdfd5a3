// A driver's manifest: what settings it takes. zelm-manifest(5) tells the format of the file.
#pragma once

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

class zelm_config_list {
public:
    // Descriptions and presentation hints are read if this is 1 and skipped if it is 0.
    int with_texts = 0;

    // Reads the manifest at the path. One that can't be read, or is broken anywhere, leaves the list
    // empty; the result is then -1, otherwise 0.
    int load_arglist(const char* path);

    // The entries in the byte order of their keys.
    auto begin() const { return m_entries.begin(); }
    auto end() const { return m_entries.end(); }

private:
    std::map<std::string, zelm_config_entry, std::less<>> m_entries;
};
