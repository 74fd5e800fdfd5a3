#include "schema/emit_json.hpp"

#include <algorithm>
#include <boost/algorithm/string/predicate.hpp>
#include <cerrno>
#include <climits>
#include <cstdlib>

#include "schema/codings.hpp"

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

// The entries whose keys begin with a group's prefix, which all of them have in common.
struct EmitJson::Entries {
    std::span<const JsonEmitterItem> items;
    std::size_t prefix_size = 0;

    std::string_view rest(const JsonEmitterItem& item) const { return item.key.substr(prefix_size); }

    auto lower_bound(std::string_view key) const
    {
        return std::lower_bound(items.begin(), items.end(), key,
            [this](const JsonEmitterItem& item, std::string_view wanted) { return rest(item) < wanted; });
    }

    const JsonEmitterItem* find(std::string_view key) const
    {
        const auto found = lower_bound(key);
        return found == items.end() || rest(*found) != key ? nullptr : &*found;
    }

    std::string value(std::string_view key) const
    {
        const JsonEmitterItem* const item = find(key);
        return std::string(item ? item->value : std::string_view());
    }

    Entries beginning_with(std::string_view prefix) const
    {
        const auto first = lower_bound(prefix);
        const auto last = std::partition_point(first, items.end(),
            [this, prefix](const JsonEmitterItem& item) { return rest(item).starts_with(prefix); });
        return {{first, last}, prefix_size + prefix.size()};
    }
};

void EmitJson::add(InfoList list)
{
    const auto known = static_cast<std::ptrdiff_t>(m_items.size());
    if (known == 0)
        m_items.reserve(list.size());
    for (const auto& [key, item] : list)
        if (Entries{{m_items.begin(), m_items.begin() + known}}.find(key))
            m_later[std::string(key)] = item.value;
        else
            m_items.push_back({item, key});
    if (known == static_cast<std::ptrdiff_t>(m_items.size()))
        return;
    std::inplace_merge(m_items.begin(), m_items.begin() + known, m_items.end(),
        [](const JsonEmitterItem& left, const JsonEmitterItem& right) { return left.key < right.key; });
    m_lists.push_back(std::move(list));
}

std::string EmitJson::value(std::string_view key) const
{
    return Entries{m_items}.value(key);
}

Json EmitJson::null_or_value(std::string_view key) const
{
    return codings::NullableText::written(value(key), "");
}

Json EmitJson::boolean(std::string_view key) const
{
    return codings::Boolean::written(value(key), "");
}

Json EmitJson::null_or_boolean(std::string_view key) const
{
    return codings::Nullable<codings::Boolean>::written(value(key), "");
}

Json EmitJson::number(std::string_view key, double fallback) const
{
    return read_number(value(key), fallback);
}

Json EmitJson::null_or_number(std::string_view key) const
{
    return codings::Nullable<codings::Number>::written(value(key), "");
}

Json EmitJson::integer(std::string_view key, int fallback) const
{
    return read_integer(value(key), fallback);
}

Json::array EmitJson::path(std::string_view key) const
{
    return codings::Path::written(value(key), "").array_items();
}

const JsonEmitterItem& EmitJson::get(std::string_view key) const
{
    const JsonEmitterItem* item = Entries{m_items}.find(key);
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

// An object in the making. Members come in the order of a table, in which neighbours mostly stand in the
// same object: that one stays open until a member leads elsewhere.
class EmitJson::Tree {
public:
    void put(std::string_view path, Json member)
    {
        std::size_t depth = 1;
        for (auto dot = path.find('.'); dot != path.npos; dot = path.find('.')) {
            open(path.substr(0, dot), depth++);
            path.remove_prefix(dot + 1);
        }
        close_to(depth);
        m_open.back().members.insert_or_assign(std::string(path), std::move(member));
    }

    Json::object finish()
    {
        close_to(1);
        return std::move(m_open.front().members);
    }

private:
    struct Level {
        std::string_view name;
        Json::object members;
    };

    // What was closed before is opened again.
    void open(std::string_view name, std::size_t depth)
    {
        if (depth < m_open.size() && m_open[depth].name == name)
            return;
        close_to(depth);
        const Json::object& around = m_open.back().members;
        const auto closed = around.find(std::string(name));
        m_open.push_back({name, closed == around.end() ? Json::object() : closed->second.object_items()});
    }

    void close_to(std::size_t depth)
    {
        while (m_open.size() > depth) {
            Level level = std::move(m_open.back());
            m_open.pop_back();
            m_open.back().members.insert_or_assign(
                std::string(level.name), json_of(std::move(level.members)));
        }
    }

    // Members that are called by their places are an array.
    static Json json_of(Json::object members)
    {
        if (members.empty() || members.begin()->first != "0")
            return members;
        Json::array elements;
        for (auto& [place, element] : members)
            elements.push_back(std::move(element));
        return elements;
    }

    std::vector<Level> m_open = std::vector<Level>(1);
};

Document EmitJson::members(const Table& table) const
{
    return object(table, {m_items});
}

Json::object EmitJson::object(const Table& table, const Entries& entries)
{
    Tree tree;
    write(table, entries, tree);
    return tree.finish();
}

void EmitJson::write(const Table& table, const Entries& entries, Tree& tree)
{
    for (std::size_t i = 0; i < table.rows.size(); i += 1 + table.rows[i].members) {
        const PackedRow& row = table.rows[i];
        if (row.members > 0)
            write_group(table, i, entries, tree);
        else if (row.direction != Direction::READ)
            if (auto member = codings::written(
                    row.coding, entries.value(table.text(row.key)), table.text(row.null_text)))
                tree.put(table.text(row.path), std::move(*member));
    }
}

void EmitJson::write_group(const Table& table, std::size_t group, const Entries& entries, Tree& tree)
{
    const PackedRow& row = table.rows[group];
    const Table members = table.members_of(group);
    const std::string_view path = table.text(row.path);
    const std::string key = table.text(row.key);
    if (path.empty())
        return write(members, entries.beginning_with(key), tree);
    if (row.repeat.count == 0)
        return tree.put(path, object(members, entries.beginning_with(key)));
    Json::array elements;
    for (int i = 0; i < row.repeat.count; ++i)
        elements.push_back(
            object(members, entries.beginning_with(numbered(key, row.repeat.first_number + i))));
    tree.put(path, std::move(elements));
}

Json EmitJson::json() const
{
    Json::object members;
    for (const JsonEmitterItem& item : m_items)
        members[std::string(item.key)] = std::string(item.value);
    for (const auto& [key, value] : m_later)
        members[key] = value;
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
