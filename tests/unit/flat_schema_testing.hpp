// Checks of schemas that are a plain list of texts: every member, in every state that it can have.
#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

#include "unit/schema_testing.hpp"

struct FlatMember {
    enum Kind {
        NULLABLE,  // null when empty, and a null empties
        TEXT,      // a null in a document gives the text below
        CONSTANT,  // always the text below, but a null empties
    };
    const char* flat_key;
    Kind kind = NULLABLE;
    const char* text = "";
};

using FlatMembers = std::vector<FlatMember>;

// How a member is named after its flat key.
inline std::string json_key(std::string name)
{
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == ' ' || c == ',' || c == '-'; }, '_');
    return name.front() >= '0' && name.front() <= '9' ? "_" + name : name;
}

template <typename Emitter> void expect_writes(const FlatMembers& members)
{
    json11::Json::object unset;
    json11::Json::object set;
    Pairs empty_texts;
    Pairs texts;
    for (const auto& [flat_key, kind, text] : members) {
        const std::string key = json_key(flat_key);
        const json11::Json constant(text);
        const json11::Json nothing = kind == FlatMember::NULLABLE ? json11::Json() : json11::Json("");
        unset[key] = kind == FlatMember::CONSTANT ? constant : nothing;
        set[key] = kind == FlatMember::CONSTANT ? constant : "the " + key;
        empty_texts.emplace_back(flat_key, "");
        texts.emplace_back(flat_key, "the " + key);
    }
    EXPECT_EQ(unset.size(), members.size());
    EXPECT_EQ(emitted<Emitter>({}), json11::Json(unset));
    EXPECT_EQ(emitted<Emitter>(empty_texts), json11::Json(unset));
    EXPECT_EQ(emitted<Emitter>(texts), json11::Json(set));
}

template <typename Consumer> void expect_reads(const FlatMembers& members)
{
    const std::pair<json11::Json, const char*> values[] = {{"1 2 3", "1 2 3"}, {"", ""}, {7, "7"},
        {false, "false"}, {json11::Json::array{"a", 1}, R"(["a", 1])"}};
    for (const auto& [value, value_text] : values) {
        json11::Json::object document;
        Pairs pairs;
        for (const auto& [flat_key, kind, text] : members) {
            document[json_key(flat_key)] = value;
            pairs.emplace_back(flat_key, kind == FlatMember::CONSTANT ? text : value_text);
        }
        EXPECT_EQ(consumed<Consumer>(json11::Json(document).dump()), pairs);
    }
    for (const auto& [flat_key, kind, text] : members) {
        const json11::Json alone = json11::Json::object{{json_key(flat_key), nullptr}};
        const Pairs pair = {{flat_key, kind == FlatMember::TEXT ? text : ""}};
        EXPECT_EQ(consumed<Consumer>(alone.dump()), pair);
    }
}
