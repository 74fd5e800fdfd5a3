// The record that travels down a schema on the reading side: where in the document a field stands, and
// what the field declares about itself.
//
// Params is handed on by value at every step, so that what one handler declares never reaches another.
// The copy is cheap: the document behind it is shared and never written.
#pragma once

#include <json11.hpp>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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
    explicit Params(json11::Json json) : document(std::move(json)) {}

    // Steps into a member.
    Params& push(std::string component);

    // Declarations of a leaf. Each steps into the member `json_key` and says as what its value is read;
    // `default_text` is what a null reads as. Of a field that takes several types, only the one that it
    // is read as is declared: a constant before a string, a string before numbers.
    Params& string(std::string json_key, std::string default_text = "");
    Params& boolean(std::string json_key, std::string default_text = "");
    Params& integer(std::string json_key, std::string default_text = "");
    Params& number(std::string json_key, std::string default_text = "");
    Params& array(std::string json_key);
    Params& constant(std::string json_key, std::string text);
    Params& or_null(std::string text = "");  // a null writes this text and no default

    bool hasKey() const { return has_key(document, path); }
    bool isNull() const { return reduce(document, path).is_null(); }

    // The document's value as flat text. A null, or a missing member, gives the default, and without
    // one "" or "0".
    std::string stringValue() const;   // anything but a string: its JSON text
    std::string booleanValue() const;  // "1" for true, "0" for everything else
    std::string integerValue() const;  // a string as it stands; a number cut to an integer; else "0"
    std::string numberValue() const;   // a string as it stands; a number; else "0"
    std::string arrayValue(const std::string& separator) const;  // no array: ""
    std::string constValue() const { return m_const_text; }

    // The value as the field declares it.
    std::string declaredValue() const;
    bool nullable() const { return m_nullable; }
    const std::string& nullText() const { return m_null_text; }

    // Prints the path and the document on standard output.
    void debug() const;

    json11::Json document;
    JsonPath path;

private:
    enum class Type { NONE, CONST, STRING, BOOLEAN, NUMBER, INTEGER, ARRAY };

    Params& declare(Type type, std::string json_key, std::string default_text);

    Type m_type = Type::NONE;
    bool m_nullable = false;
    std::string m_default_text;
    std::string m_const_text;
    std::string m_null_text;
};
