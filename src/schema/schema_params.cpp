#include "schema/schema_params.hpp"

#include <cstdio>

#include "schema/json_text.hpp"

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
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (i > 0 && at->is_null())
            return false;
        if (!at->is_object()) {
            at = &child(*at, path[i]);
            continue;
        }
        const auto& members = at->object_items();
        const auto member = members.find(path[i]);
        if (member == members.end())
            return false;
        at = &member->second;
    }
    return !path.empty();
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
    m_default_text = std::move(default_text);
    return push(std::move(json_key));
}

Params& Params::string(std::string json_key, std::string default_text)
{
    return declare(Type::STRING, std::move(json_key), std::move(default_text));
}

Params& Params::boolean(std::string json_key, std::string default_text)
{
    return declare(Type::BOOLEAN, std::move(json_key), std::move(default_text));
}

Params& Params::integer(std::string json_key, std::string default_text)
{
    return declare(Type::INTEGER, std::move(json_key), std::move(default_text));
}

Params& Params::number(std::string json_key, std::string default_text)
{
    return declare(Type::NUMBER, std::move(json_key), std::move(default_text));
}

Params& Params::array(std::string json_key)
{
    return declare(Type::ARRAY, std::move(json_key), "");
}

Params& Params::constant(std::string json_key, std::string text)
{
    m_const_text = std::move(text);
    return declare(Type::CONST, std::move(json_key), "");
}

Params& Params::or_null(std::string text)
{
    m_nullable = true;
    m_null_text = std::move(text);
    return *this;
}

std::string Params::stringValue() const
{
    return string_text(reduce(document, path), m_default_text);
}

std::string Params::booleanValue() const
{
    return boolean_text(reduce(document, path), m_default_text);
}

std::string Params::integerValue() const
{
    return integer_text(reduce(document, path), m_default_text);
}

std::string Params::numberValue() const
{
    return number_text(reduce(document, path), m_default_text);
}

std::string Params::arrayValue(const std::string& separator) const
{
    return array_text(reduce(document, path), separator);
}

std::string Params::declaredValue() const
{
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
