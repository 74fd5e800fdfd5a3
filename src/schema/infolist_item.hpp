// One entry of an item's info list: a value, where it comes from, and how to present it.
#pragma once

#include <json11.hpp>
#include <map>
#include <string>
#include <string_view>

struct infolist_item {
    // Description and JSON text of presentation hints. They point into the driver's manifest, which
    // lives as long as the run, or to a literal.
    std::string_view desc;
    std::string_view ui_text;

    std::string value;          // several lines are joined with a line feed
    char marker = 0;            // where the entry comes from, see marker_string
    bool reported = false;      // filled from the current live report
    bool quick_summary = true;  // belongs to the short summary
    bool s_flag = false;        // "!s:" in a listing
    bool nogui_flag = false;    // "!nogui:" in a listing

    // What the marker stands for: 0 "Config", '=' "Process", '*' "Transient", '?' "Not In Config", and
    // "Unknown" for any other, the letters of reports and manifests.
    std::string marker_string() const;

    // The object members of the hints. An empty text gives an empty object; so does a broken one, which
    // is reported on standard error.
    json11::Json ui() const;

    // The hints' "json_type", or "" when there is none.
    std::string type() const;
};

// Ordered by the bytes of the keys.
using InfoList = std::map<std::string, infolist_item, std::less<>>;
