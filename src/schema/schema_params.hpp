// The record that travels down a schema on the reading side: where in the document a field stands, and
// what the field declares about itself.
//
// Params is handed on by value at every step, so that what one handler declares never reaches another.
// The copy is cheap: the document behind it is shared and never written.
#pragma once

#include <json11.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "schema/json_text.hpp"

// Names of members, and decimal numbers for places in an array, from the top of the document down.
using JsonPath = std::vector<std::string>;

// One step of the walks below: what stands there, or nullptr where a longer path would not exist.
const json11::Json* member_of(const json11::Json* json, std::string_view component);

// Whether the document holds the path. A member that holds null exists; so does any name one level below
// a scalar, and any place in an array, also behind its end. An empty path does not. Both walks let the
// exceptions of std::stoi through where an array meets a component that is no number.
bool has_key(const json11::Json& json, const JsonPath& path);

// What stands at the path, null if nothing does. An empty path throws the C string "No key assigned".
// `debug` prints the walk on standard output.
json11::Json reduce(const json11::Json& json, const JsonPath& path, bool debug = false);

class Params {
public:
    // As what a field is read. Of one that takes several types, the first of them in this order.
    enum class Type { NONE, CONST, STRING, BOOLEAN, NUMBER, INTEGER, ARRAY };

    explicit Params(json11::Json json) : document(std::move(json)) {}

    // Steps into a member.
    Params& push(std::string component);

    // Steps into the leaf `json_key` and says as what it is read, and as what a null reads. Of a constant
    // the text is the constant itself.
    Params& declare(Type type, std::string json_key, std::string default_text = "");
    Params& or_null(std::string text = "");  // a null writes this text and no default

    bool hasKey() const { return has_key(document, path); }
    bool isNull() const { return reduced().is_null(); }

    // The document's value as flat text, as json_text.hpp tells it. A missing member counts as null.
    std::string stringValue() const { return string_text(reduced(), m_text); }
    std::string booleanValue() const { return boolean_text(reduced(), m_text); }
    std::string integerValue() const { return integer_text(reduced(), m_text); }
    std::string numberValue() const { return number_text(reduced(), m_text); }
    std::string arrayValue(const std::string& separator) const { return array_text(reduced(), separator); }
    std::string constValue() const { return m_text; }

    // The value as the field declares it.
    std::string declaredValue() const;

    // Prints the path and the document on standard output.
    void debug() const;

    json11::Json document;
    JsonPath path;

private:
    json11::Json reduced() const { return reduce(document, path); }

    Type m_type = Type::NONE;
    std::string m_text;
    std::optional<std::string> m_null_text;
};
