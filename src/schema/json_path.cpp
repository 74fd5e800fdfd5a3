#include "schema/json_path.hpp"

#include <string>

using json11::Json;

const Json* member_of(const Json* json, std::string_view name)
{
    if (!json || json->is_null())
        return nullptr;
    const std::string key(name);
    if (json->is_array())
        return &(*json)[static_cast<std::size_t>(std::stoi(key))];
    if (!json->is_object())
        return &(*json)[key];
    const auto& members = json->object_items();
    const auto member = members.find(key);
    return member == members.end() ? nullptr : &member->second;
}

const Json* member_at(const Json* json, std::string_view path)
{
    while (!path.empty()) {
        const std::size_t dot = path.find('.');
        json = member_of(json, path.substr(0, dot));
        path.remove_prefix(dot == std::string_view::npos ? path.size() : dot + 1);
    }
    return json;
}
