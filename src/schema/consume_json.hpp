// The reading side of every schema: a JSON document in, flat settings out.
//
// A schema class derives from JsonConsumer and calls its handlers in createItems(), one for each object
// and member of the document. A member that the document lacks produces nothing, so that a partial
// document changes only what it names. Nothing is rejected.
#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "schema/document.hpp"
#include "schema/field.hpp"
#include "schema/schema_params.hpp"
#include "schema/word_pairs.hpp"

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

    // The pairs of fields that both directions code alike, in their order. `key_prefix` goes in front of
    // each flat key.
    void create_items(
        std::span<const Field> fields, const Params& params, const std::string& key_prefix = "");

private:
    json11::Json m_document;
    SettingValues m_items;
};
