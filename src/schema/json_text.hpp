// JSON values as the texts of a settings file. A null gives the default, and an empty default stands for
// the type's own: "" of strings and arrays, "0" of the others.
#pragma once

#include <json11.hpp>
#include <string>
#include <string_view>

std::string string_text(const json11::Json& json, std::string_view default_text = {});  // else its JSON text
std::string boolean_text(
    const json11::Json& json, std::string_view default_text = {});  // "1" exactly for true
std::string integer_text(
    const json11::Json& json, std::string_view default_text = {});  // a string as it stands
std::string number_text(const json11::Json& json, std::string_view default_text = {});  // likewise

// The strings of an array with the separator between them; other members count as empty.
std::string array_text(const json11::Json& json, const std::string& separator);

// A number as settings files hold it: up to six decimals, without trailing zeros.
std::string number_text(double number);
