// What the tests of the stream encoders share: long lists of keys in a short form.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "schema/composite_text.hpp"
#include "schema/schema_params.hpp"
#include "unit/schema_testing.hpp"

// One text member of a document.
struct Leaf {
    JsonPath path;
    std::string flat_key;
    std::string default_text;
};

using Leaves = std::vector<Leaf>;

// Appends the keys of a list such as "encoder; quality=80; mp3, strict iso=0", with the default behind "=".
// The members stand below `path`, and `key_prefix` goes in front of the flat keys. A member has the name of
// its key with underscores for blanks, commas, dots and hyphens.
inline void append(
    Leaves& leaves, const std::string& list, const JsonPath& path, const std::string& key_prefix)
{
    for (std::string row : split(list, ";")) {
        row.erase(0, row.find_first_not_of(" \n"));
        const std::size_t end = row.find('=');
        std::string name = row.substr(0, end);
        Leaf leaf{path, key_prefix + name, end == std::string::npos ? "" : row.substr(end + 1)};
        for (std::size_t at = 0; (at = name.find_first_of(" ,.-", at)) != std::string::npos;)
            name[at] = '_';
        leaf.path.push_back(std::move(name));
        leaves.push_back(std::move(leaf));
    }
}

// Settings that give each key a value of its own, which says what key it belongs to.
inline Pairs told_apart(const Leaves& leaves)
{
    Pairs settings;
    for (const Leaf& leaf : leaves)
        settings.emplace_back(leaf.flat_key, " value of " + leaf.flat_key);
    return settings;
}

inline void expect_members(const json11::Json& document, const Leaves& leaves, const Pairs& values)
{
    ASSERT_EQ(leaves.size(), values.size());
    for (std::size_t i = 0; i < leaves.size(); ++i)
        EXPECT_EQ(reduce(document, leaves[i].path), json11::Json(values[i].second)) << leaves[i].flat_key;
}

inline Pairs defaults(const Leaves& leaves)
{
    Pairs pairs;
    for (const Leaf& leaf : leaves)
        pairs.emplace_back(leaf.flat_key, leaf.default_text);
    return pairs;
}

// The pairs of a list such as "encoder=mp3; quality=80; rate".
inline Pairs pairs_of(const std::string& list)
{
    Leaves leaves;
    append(leaves, list, {}, "");
    return defaults(leaves);
}

inline Pairs same_value(const Leaves& leaves, const std::string& value)
{
    Pairs pairs;
    for (const Leaf& leaf : leaves)
        pairs.emplace_back(leaf.flat_key, value);
    return pairs;
}

// The document with `value` in place of every scalar.
inline json11::Json with_scalars(const json11::Json& json, const json11::Json& value)
{
    if (json.is_array()) {
        json11::Json::array elements;
        for (const json11::Json& element : json.array_items())
            elements.push_back(with_scalars(element, value));
        return elements;
    }
    if (!json.is_object())
        return value;
    json11::Json::object members;
    for (const auto& [name, child] : json.object_items())
        members[name] = with_scalars(child, value);
    return members;
}
