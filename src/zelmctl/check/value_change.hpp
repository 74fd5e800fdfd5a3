// Whether a value of a document is stored as it stands.
#pragma once

#include <json11.hpp>
#include <string>

#include "schema/schemas.hpp"

// A value as people write it: a text without quotes, a number without an exponent, else its JSON.
std::string plain(const json11::Json& json);

// What becomes of a member's value, in words that follow it; empty if it is stored as it stands. `stored` is
// the flat text, empty if none is stored.
std::string change_of(const json11::Json& json, const Face& face, const std::string& stored);

// Whether a listing as JSON ends abnormally on a text that the settings have for the member.
bool ends_listing(const MemberFace& member, const std::string& text);

// Whether a text that a null stores is what the key counts as when it isn't set. Nothing stored is.
bool is_default(const std::string& stored, const MemberFace& member);
