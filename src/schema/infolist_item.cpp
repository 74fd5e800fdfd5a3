#include "schema/infolist_item.hpp"

#include <cstdio>

std::string infolist_item::marker_string() const
{
    switch (marker) {
    case 0: return "Config";
    case '=': return "Process";
    case '*': return "Transient";
    case '?': return "Not In Config";
    default: return "Unknown";
    }
}

json11::Json infolist_item::ui() const
{
    if (ui_text.empty())
        return json11::Json::object{};
    const std::string text(ui_text);
    std::string error;
    const json11::Json hints = json11::Json::parse(text, error);
    if (!error.empty())
        std::fprintf(stderr, "Error paring %s\n%s\n", text.c_str(), error.c_str());
    return hints.object_items();
}

std::string infolist_item::type() const
{
    return ui()["json_type"].string_value();
}
