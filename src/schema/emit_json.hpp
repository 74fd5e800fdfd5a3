// Flat settings in, a JSON document out: the base of what writes every document.
#pragma once

#include <map>
#include <string_view>
#include <vector>

#include "schema/document.hpp"
#include "schema/packed_table.hpp"
#include "settings/infolist_item.hpp"

struct JsonEmitterItem {
    std::string_view key;
    std::string_view value;
};

class EmitJson {
public:
    virtual ~EmitJson() = default;

    // The document's members. Throws a C string or a std::logic_error for two keys of a channel whose text
    // must be one that its coding takes.
    virtual Document emitJson() const = 0;

    // Leaves out the members that give access, and not only their values.
    void leave_out_secrets() { m_has_secrets = false; }

    // Takes the entries of one item, whatever their markers. Of a key that an earlier item had, that one
    // counts.
    void add(InfoList list);

protected:
    // The document's members by the rows of its table.
    Document members(const Table& table) const;

private:
    class Tree;
    struct Entries;

    static json11::Json::object object(const Table& table, const Entries& entries);
    static void write(const Table& table, const Entries& entries, Tree& tree);
    static void write_group(const Table& table, std::size_t group, const Entries& entries, Tree& tree);

    std::vector<JsonEmitterItem> m_items;  // in the order of their keys, each of them once
    bool m_has_secrets = true;
    std::vector<InfoList> m_lists;  // whose texts they show
};
