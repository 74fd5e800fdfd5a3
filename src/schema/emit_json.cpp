#include "schema/emit_json.hpp"

#include <algorithm>
#include <boost/algorithm/string/predicate.hpp>
#include <cerrno>
#include <climits>
#include <cstdlib>

#include "schema/composite_text.hpp"

using json11::Json;

namespace {

constexpr char PROGRESSIVE[] = "progressive";
constexpr char BOTTOM_FIELD_FIRST[] = "interlaced bottom-field-first";
constexpr char TOP_FIELD_FIRST[] = "interlaced top-field-first";

bool cut_suffix(std::string& text, const std::string& suffix)
{
    const bool has = boost::algorithm::ends_with(text, suffix);
    if (has)
        text.erase(text.size() - suffix.size());
    return has;
}

std::pair<std::string, std::string> two_parts(
    const std::string& text, const char* separators, const char* complaint)
{
    std::vector<std::string> parts = split(text, separators);
    if (parts.size() != 2)
        throw complaint;
    return {std::move(parts[0]), std::move(parts[1])};
}

}  // namespace

std::string JsonEmitterItem::flatten_json_key(
    const std::string& target, const std::string& prefix, const Json& json)
{
    if (prefix == target)
        return json.dump();
    const std::string above = prefix + ".";
    for (const auto& [name, member] : json.object_items()) {
        std::string found = flatten_json_key(target, above + name, member);
        if (!found.empty())
            return found;
    }
    return {};
}

void EmitJson::add(InfoList list)
{
    // For the first item alone: exact room for each one would move all entries once an item.
    if (m_items.empty())
        m_items.reserve(list.size());
    // Node by node, since the key of an entry that stays in its map can only be copied.
    while (!list.empty()) {
        auto entry = list.extract(list.begin());
        m_items.push_back({std::move(entry.mapped()), std::move(entry.key())});
    }
    if (m_sorted == 0)
        m_sorted = m_items.size();
}

// The first item's entries came in the order of their keys, and its word counts before all others'.
const JsonEmitterItem* EmitJson::find(const std::string& key) const
{
    const auto sorted_end = m_items.begin() + static_cast<std::ptrdiff_t>(m_sorted);
    const auto is_below = [](const JsonEmitterItem& item, const std::string& wanted) {
        return item.key < wanted;
    };
    auto found = std::lower_bound(m_items.begin(), sorted_end, key, is_below);
    if (found == sorted_end || found->key != key)
        found = std::find_if(
            sorted_end, m_items.end(), [&key](const JsonEmitterItem& item) { return item.key == key; });
    return found == m_items.end() ? nullptr : &*found;
}

const std::string& EmitJson::value(const std::string& key) const
{
    static const std::string EMPTY;
    const JsonEmitterItem* item = find(key);
    return item ? item->value : EMPTY;
}

Json EmitJson::null_or_value(const std::string& key) const
{
    const std::string& text = value(key);
    return text.empty() ? Json() : Json(text);
}

Json EmitJson::boolean(const std::string& key) const
{
    return value(key) == "1";
}

Json EmitJson::null_or_boolean(const std::string& key) const
{
    return value(key).empty() ? Json() : boolean(key);
}

Json EmitJson::number(const std::string& key, double fallback) const
{
    return read_number(value(key), fallback);
}

Json EmitJson::null_or_number(const std::string& key) const
{
    return value(key).empty() ? Json() : number(key);
}

Json EmitJson::integer(const std::string& key, int fallback) const
{
    return read_integer(value(key), fallback);
}

Json EmitJson::null_or_integer(const std::string& key) const
{
    return value(key).empty() ? Json() : integer(key);
}

Json::array EmitJson::path(const std::string& key) const
{
    const std::vector<std::string> parts = split(value(key), "/");
    return {parts.begin(), parts.end()};
}

const JsonEmitterItem& EmitJson::get(const std::string& key) const
{
    const JsonEmitterItem* item = find(key);
    if (!item)
        throw "Key not found";
    return *item;
}

std::pair<std::string, std::string> EmitJson::timed_value(std::string text)
{
    std::string unit = text.empty() ? text : text.substr(text.size() - 1);
    text.erase(text.size() - 1);
    return {std::move(text), std::move(unit)};
}

std::pair<std::string, std::string> EmitJson::position_value(const std::string& text)
{
    return two_parts(text, " ", "Bad position format");
}

std::pair<std::string, std::string> EmitJson::ratio_value(const std::string& text)
{
    return two_parts(text, ":/", "Bad ratio format");
}

std::tuple<std::string, std::string, std::string> EmitJson::frame_value(const std::string& text)
{
    std::vector<std::string> parts = split(text, ":/");
    parts.resize(2);
    // A rate without a suffix is interlaced, and the letter in front of "i bff" and "i tff" is an l.
    std::string kind = BOTTOM_FIELD_FIRST;
    if (cut_suffix(parts[1], "p"))
        kind = PROGRESSIVE;
    if (cut_suffix(parts[1], "li bff"))
        kind = BOTTOM_FIELD_FIRST;
    if (cut_suffix(parts[1], "li tff"))
        kind = TOP_FIELD_FIRST;
    return {std::move(parts[0]), std::move(parts[1]), std::move(kind)};
}

double EmitJson::read_number(const std::string& text, double fallback)
{
    char* end = nullptr;
    errno = 0;
    const double number = std::strtod(text.c_str(), &end);
    return end == text.c_str() || errno == ERANGE ? fallback : number;
}

int EmitJson::read_integer(const std::string& text, int fallback)
{
    return parse_integer(text).value_or(fallback);
}

std::optional<int> EmitJson::parse_integer(const std::string& text)
{
    char* end = nullptr;
    errno = 0;
    const long number = std::strtol(text.c_str(), &end, 10);
    const bool in_range = errno != ERANGE && number >= INT_MIN && number <= INT_MAX;
    if (end == text.c_str() || !in_range)
        return std::nullopt;
    return static_cast<int>(number);
}

Json EmitJson::field(const Field& field, const std::string& flat_key) const
{
    switch (field.coding) {
    case Coding::TEXT: return value(flat_key);
    case Coding::NULLABLE_TEXT: return null_or_value(flat_key);
    case Coding::BOOLEAN: return boolean(flat_key);
    case Coding::NULLABLE_BOOLEAN: return null_or_boolean(flat_key);
    case Coding::INTEGER: return integer(flat_key);
    case Coding::NUMBER: return number(flat_key);
    case Coding::NULLABLE_NUMBER: return null_or_number(flat_key);
    case Coding::CONSTANT: return field.text;
    }
    return nullptr;
}

Json::object EmitJson::fields(std::span<const Field> fields, const std::string& key_prefix) const
{
    Json::object members;
    for (const Field& row : fields)
        members[row.json_key] = field(row, key_prefix + row.flat_key);
    return members;
}

Json EmitJson::json() const
{
    Json::object members;
    for (const JsonEmitterItem& item : m_items)
        members[item.key] = item.value;
    return members;
}

Document EmitJson::set(const Document& tree, const std::string& key, const Json& value)
{
    Document changed = tree;
    if (key.empty())
        return changed;
    const std::size_t dot = key.find('.');
    Json& member = changed[key.substr(0, dot)];
    member = dot == std::string::npos ? value : Json(set(member.object_items(), key.substr(dot + 1), value));
    return changed;
}

Json EmitJson::getValue(const std::string& key, const infolist_item& item)
{
    return JsonEmitterItem{item, key}.getValue(Json(key));
}
