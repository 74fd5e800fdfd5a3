// A driver's document as a tree: where its members stand, and the row of each.
#pragma once

#include <json11.hpp>
#include <map>
#include <string>
#include <vector>

#include "schema/schemas.hpp"
#include "zelmctl/check/nearest_name.hpp"

struct Shape {
    std::map<std::string, Shape, std::less<>> members;  // of an object; those of an array by their places

    MemberFace member = {};  // of one that is no group: by which it is read, or else written
    std::string key;
    std::vector<std::string> parts;  // members of a composite

    bool is_group() const { return !members.empty(); }
    bool is_array() const { return is_group() && members.begin()->first == "0"; }
    bool is_read() const { return member.row && member.is_read(); }
};

struct KnownDocument {
    Shape shape;
    std::vector<KnownName> names;  // of all that can be set, each with its path; by the flat keys, too
};

// Made once for each schema.
const KnownDocument& known_document(const Schema& schema);

// The path of a member, which is its name at the top. An empty name is shown as two quotes.
std::string joined(const std::string& path, const std::string& name);

// Whether the name of a path is the place of an element in an array.
bool is_place(const std::string& name);
