#include "schema/consume_json.hpp"

#include "schema/composite_text.hpp"

using json11::Json;

JsonConsumer::JsonConsumer(const std::string& text)
{
    std::string error;
    const Json parsed = Json::parse(text, error);
    m_document = parsed.is_object() ? parsed : Json(Json::object{});
}

void JsonConsumer::create_item(std::string key, std::string value)
{
    m_items.emplace_back(std::move(key), std::move(value));
}

namespace {

std::pair<std::string, std::string> present_item(const std::string& key, const Params& params)
{
    return {key, params.nullable() && params.isNull() ? params.nullText() : params.declaredValue()};
}

}  // namespace

void JsonConsumer::create_item(const std::string& key, const Params& params)
{
    if (params.hasKey())
        m_items.push_back(present_item(key, params));
}

std::pair<std::string, std::string> JsonConsumer::parse_item(const std::string& key, const Params& params)
{
    return params.hasKey() ? present_item(key, params) : std::pair<std::string, std::string>();
}

namespace {

Params declare(const Field& field, Params params)
{
    switch (field.coding) {
    case Coding::TEXT: return params.string(field.json_key, field.text);
    case Coding::NULLABLE_TEXT: return params.string(field.json_key).or_null();
    case Coding::BOOLEAN: return params.boolean(field.json_key, field.text);
    case Coding::NULLABLE_BOOLEAN: return params.boolean(field.json_key).or_null();
    case Coding::INTEGER: return params.integer(field.json_key, field.text);
    case Coding::NUMBER: return params.number(field.json_key, field.text);
    case Coding::NULLABLE_NUMBER: return params.number(field.json_key).or_null();
    case Coding::CONSTANT: return params.constant(field.json_key, field.text).or_null();
    }
    return params;
}

}  // namespace

void JsonConsumer::create_items(
    std::span<const Field> fields, const Params& params, const std::string& key_prefix)
{
    for (const Field& field : fields)
        create_item(key_prefix + field.flat_key, declare(field, params));
}

std::string JsonConsumer::timed_value(const std::string& count, const std::string& unit)
{
    return count + unit;
}

std::string JsonConsumer::ratio_value(const std::string& width, const std::string& height)
{
    return width + ":" + height;
}

std::string JsonConsumer::position_value(const std::string& x, const std::string& y)
{
    return x + " " + y;
}

std::string JsonConsumer::frame_value(const std::string& numerator, const std::string& denominator,
    const std::string& kind, const std::string& order)
{
    return numerator + ":" + denominator + kind + " " + order;
}

std::string JsonConsumer::array_value(const std::vector<std::string>& parts, const std::string& separator)
{
    return join(parts, separator);
}

std::string JsonConsumer::number(const Json& json)
{
    return json.is_string() ? json.string_value() : number_text(json.number_value());
}
