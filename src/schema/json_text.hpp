// JSON values as the texts of a settings file, and texts as numbers.
#pragma once

#include <json11.hpp>
#include <optional>
#include <string>
#include <string_view>

// A null gives the default, and an empty default stands for the type's own: "" of strings, "0" of the others.
std::string string_text(const json11::Json& json, std::string_view default_text = {});  // else its JSON text
std::string boolean_text(
    const json11::Json& json, std::string_view default_text = {});  // "1" exactly for true
std::string integer_text(
    const json11::Json& json, std::string_view default_text = {});  // a string as it stands
std::string number_text(const json11::Json& json, std::string_view default_text = {});  // likewise

// The strings of an array with the separator between them; other members count as empty.
std::string array_text(const json11::Json& json, const std::string& separator);

// A text as a number: leading blanks are skipped and what follows the number is ignored. No digits, or a
// number out of range: 0, and of parse_integer() nothing.
double number_in(const std::string& text);
int integer_in(const std::string& text);
std::optional<int> parse_integer(const std::string& text);
