#include "schema/emit_json.hpp"

#include <algorithm>
#include <span>

#include "schema/codings.hpp"

using json11::Json;

// The entries whose keys begin with a group's prefix, which all of them have in common.
struct EmitJson::Entries {
    std::span<const JsonEmitterItem> items;
    std::size_t prefix_size = 0;
    bool has_secrets = true;

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
        return {{first, last}, prefix_size + prefix.size(), has_secrets};
    }
};

void EmitJson::add(InfoList list)
{
    const auto known = static_cast<std::ptrdiff_t>(m_items.size());
    if (known == 0)
        m_items.reserve(list.size());
    for (const auto& [key, item] : list)
        if (!Entries{{m_items.begin(), m_items.begin() + known}}.find(key))
            m_items.push_back({key, item.value});
    if (known == static_cast<std::ptrdiff_t>(m_items.size()))
        return;
    std::inplace_merge(m_items.begin(), m_items.begin() + known, m_items.end(),
        [](const JsonEmitterItem& left, const JsonEmitterItem& right) { return left.key < right.key; });
    m_lists.push_back(std::move(list));
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
    return object(table, {m_items, 0, m_has_secrets});
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
        else if (row.direction != Direction::READ && (entries.has_secrets || !row.secret))
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
