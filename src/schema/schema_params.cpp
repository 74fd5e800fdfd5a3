#include "schema/schema_params.hpp"

#include <cstdio>

using json11::Json;

namespace {

// Null where there is none, as behind the end of an array and below a scalar.
const Json& child(const Json& json, const std::string& component)
{
    return json.is_array() ? json[static_cast<std::size_t>(std::stoi(component))] : json[component];
}

}  // namespace

const Json* member_of(const Json* json, std::string_view component)
{
    if (!json || json->is_null())
        return nullptr;
    const std::string name(component);
    if (!json->is_object())
        return &child(*json, name);
    const auto& members = json->object_items();
    const auto member = members.find(name);
    return member == members.end() ? nullptr : &member->second;
}

bool has_key(const Json& json, const JsonPath& path)
{
    const Json* at = &json;
    for (std::size_t i = 0; i < path.size() && at; ++i)
        at = i == 0 && !json.is_object() ? &child(json, path[i]) : member_of(at, path[i]);
    return !path.empty() && at;
}

Json reduce(const Json& json, const JsonPath& path, bool debug)
{
    if (path.empty())
        throw "No key assigned";
    const Json* at = &json;
    for (const std::string& component : path) {
        if (debug)
            std::printf("%s -> ", component.c_str());
        at = &child(*at, component);
    }
    if (debug)
        std::printf("%s\n", at->dump().c_str());
    return *at;
}

Params& Params::push(std::string component)
{
    path.push_back(std::move(component));
    return *this;
}

Params& Params::declare(Type type, std::string json_key, std::string default_text)
{
    m_type = type;
    m_text = std::move(default_text);
    return push(std::move(json_key));
}

Params& Params::or_null(std::string text)
{
    m_null_text = std::move(text);
    return *this;
}

std::string Params::declaredValue() const
{
    if (m_null_text && isNull())
        return *m_null_text;
    switch (m_type) {
    case Type::CONST: return constValue();
    case Type::STRING: return stringValue();
    case Type::BOOLEAN: return booleanValue();
    case Type::NUMBER: return numberValue();
    case Type::INTEGER: return integerValue();
    case Type::ARRAY: return arrayValue("/");
    case Type::NONE: break;
    }
    return {};
}

void Params::debug() const
{
    std::printf("\n");
    for (const std::string& component : path)
        std::printf("%s -> ", component.c_str());
    std::printf("\n%s\n", document.dump().c_str());
}
