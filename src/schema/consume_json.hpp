// The reading side of every schema: a JSON document in, flat settings out.
//
// A schema class derives from JsonConsumer and hands its table on in createItems(). A member that the
// document lacks produces nothing, so that a partial document changes only what it names. Nothing is
// rejected.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "schema/document.hpp"
#include "schema/packed_table.hpp"
#include "schema/schema_params.hpp"

// Pairs of flat key and value in the order in which a set applies them; duplicates stay.
using SettingValues = std::vector<std::pair<std::string, std::string>>;

class JsonConsumer {
public:
    // A text that is no JSON object leaves the document empty, without a message.
    explicit JsonConsumer(const std::string& text);
    virtual ~JsonConsumer() = default;

    virtual void createItems() = 0;

    const Document& document() const { return m_document.object_items(); }
    const SettingValues& items() const { return m_items; }

    // The pair of a field; a null that the field takes gives its null text. ("", "") if the document
    // lacks it.
    static std::pair<std::string, std::string> parse_item(const std::string& key, const Params& params);

    // Builders of composite texts.
    static std::string timed_value(const std::string& count, const std::string& unit);
    static std::string ratio_value(const std::string& width, const std::string& height);
    static std::string position_value(const std::string& x, const std::string& y);
    static std::string frame_value(const std::string& numerator, const std::string& denominator,
        const std::string& kind, const std::string& order);
    static std::string array_value(const std::vector<std::string>& parts, const std::string& separator);
    static std::string number(const json11::Json& json);  // a string as it stands, otherwise the number

protected:
    // The top of the document, where every walk begins.
    Params top() const { return Params(m_document); }

    void create_item(std::string key, std::string value);

    // The field's pair, if the document has the field.
    void create_item(const std::string& key, const Params& params);

    // The pairs of the table's rows, in their order, as far as the document has them. `members` may stand in
    // for the document.
    void create_items(const Table& table) { read(table, {&m_document, nullptr, {}}); }
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
