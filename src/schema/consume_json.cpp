#include "schema/consume_json.hpp"

#include "schema/codings.hpp"

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

codings::Place place_of(const Json* at, std::string_view path)
{
    const std::size_t dot = path.rfind('.');
    const Json* const object = dot == std::string_view::npos ? at : member_at(at, path.substr(0, dot));
    return {object, member_of(object, path.substr(dot + 1))};
}

// The group at this place of the array, nullptr if it is not read. `around` is the array of the objects
// that each have such an array at the path.
const Json* element(
    const Json* array, std::size_t place, Elements which, const Json* around, std::string_view path)
{
    if (which == Elements::DIAGONAL) {
        const bool is_read = around && !(*around)[place][std::string(path)][place].is_null();
        return is_read ? member_of(array, std::to_string(place)) : nullptr;
    }
    if (!array)
        return nullptr;
    for (std::size_t i = 0; which == Elements::UP_TO_NULL && i < place; ++i)
        if ((*array)[i].is_null())
            return nullptr;
    return &(*array)[place];  // null where there is no such element, and in what is no array
}

}  // namespace

void JsonConsumer::read(const Table& table, const Scope& scope)
{
    for (std::size_t i = 0; i < table.rows.size(); i += 1 + table.rows[i].members) {
        const PackedRow& row = table.rows[i];
        if (row.members > 0)
            read_group(table, i, scope);
        else if (row.direction != Direction::WRITTEN)
            read_member(table, row, scope);
    }
}

void JsonConsumer::read_group(const Table& table, std::size_t group, const Scope& scope)
{
    const PackedRow& row = table.rows[group];
    const Table members = table.members_of(group);
    const std::string_view path = table.text(row.path);
    const Json* const object = member_at(scope.object, path);
    const std::string key_prefix = scope.key_prefix + table.text(row.key);
    if (row.repeat.count == 0)
        read(members, {object, scope.array, key_prefix});
    for (std::size_t i = 0; i < row.repeat.count; ++i)
        read(members, {element(object, i, row.repeat.elements, scope.array, path), object,
                          numbered(key_prefix, row.repeat.first_number + static_cast<int>(i))});
}

void JsonConsumer::read_member(const Table& table, const PackedRow& row, const Scope& scope)
{
    const codings::Place place = place_of(scope.object, table.text(row.path));
    if (auto text = codings::read(row.coding, place, table.text(row.null_text)))
        create_item(scope.key_prefix + table.text(row.key), std::move(*text));
    else if (row.nameless_if_absent)
        create_item("", "");
}
