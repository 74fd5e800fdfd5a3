// A JSON document in, flat settings out: the base of what reads every document. A member that the document
// lacks produces nothing, so that a partial document changes only what it names. Nothing is rejected.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "schema/document.hpp"
#include "schema/packed_table.hpp"

// Pairs of flat key and value in the order in which a set applies them; duplicates stay.
using SettingValues = std::vector<std::pair<std::string, std::string>>;

class JsonConsumer {
public:
    // A text that is no JSON object leaves the document empty, without a message.
    explicit JsonConsumer(const std::string& text);
    virtual ~JsonConsumer() = default;

    // Makes the items. Throws std::invalid_argument where an array stands in the place of an object.
    virtual void createItems() = 0;

    const SettingValues& items() const { return m_items; }
    SettingValues take_items() { return std::move(m_items); }

protected:
    const Document& document() const { return m_document.object_items(); }

    void create_item(std::string key, std::string value);

    // The pairs of the table's rows, in their order, as far as the document has them. `members` may stand in
    // for the document.
    void create_items(const Table& table) { create_items(table, m_document); }
    void create_items(const Table& table, const json11::Json& members)
    {
        read(table, {&members, nullptr, {}});
    }

private:
    // Where the members of a table stand.
    struct Scope {
        const json11::Json* object;  // nullptr if the document lacks it
        const json11::Json* array;   // of which the object is an element, if it is one
        std::string key_prefix;
    };

    void read(const Table& table, const Scope& scope);
    void read_group(const Table& table, std::size_t group, const Scope& scope);
    void read_member(const Table& table, const PackedRow& row, const Scope& scope);

    json11::Json m_document;
    SettingValues m_items;
};
