// A driver's schema as a list of its keys, and the tests that every list must pass.
#pragma once

#include <algorithm>
#include <cctype>
#include <functional>
#include <gtest/gtest.h>
#include <map>

#include "schema/composite_text.hpp"
#include "schema/create_consumer.hpp"
#include "schema/create_emitter.hpp"
#include "unit/schema_testing.hpp"

inline json11::Json emitted(const std::string& driver, const Pairs& settings)
{
    InfoList list;
    for (const auto& [key, value] : settings)
        list[key].value = value;
    const auto emitter = createEmitter(driver);
    emitter->add(list);
    return emitter->emitJson();
}

inline Pairs consumed(const std::string& driver, const std::string& document)
{
    const auto consumer = createConsumer(driver, document);
    consumer->createItems();
    return consumer->items();
}

struct KeyRow {
    std::string key;
    std::string written;  // the kinds of WRITTEN and READ
    std::string read;
    std::string of_null;  // what a null writes
    JsonPath path;
    JsonPath read_path;
    json11::Json sample;  // of a member whose null writes nothing: the value that writes of_null instead
};

using Rows = std::vector<KeyRow>;

// The rows of a list such as "item; drm master:switch=0@kms.master.enable; catch up speed:number?/number":
// each is a flat key, its kind or kinds, what its null writes, the place of its member below `path` and a
// sample. Without a place a member has the name of its key with underscores, and none begins with a digit.
inline Rows rows(const std::string& list, const std::string& usual_kind = "text?", const JsonPath& path = {},
    const std::string& prefix = "")
{
    Rows rows;
    for (std::string entry : split(list, ";")) {
        entry.erase(0, entry.find_first_not_of(" \n"));
        const std::vector<std::string> parts = split(entry, "@");
        const std::size_t colon = parts[0].find(':');
        const std::size_t equals = parts[0].find('=', colon == std::string::npos ? 0 : colon);
        const std::string key = parts[0].substr(0, std::min(colon, equals));
        const std::vector<std::string> kinds = split(
            colon == std::string::npos ? usual_kind : parts[0].substr(colon + 1, equals - colon - 1), "/");
        JsonPath place;
        if (parts.size() > 1) {
            place = split(parts[1], ".");
        } else {
            place = {path.empty() && std::isdigit(static_cast<unsigned char>(key[0])) ? "_" + key : key};
            for (char& c : place[0])
                if (std::string_view(" ,./-").find(c) != std::string_view::npos)
                    c = '_';
        }
        place.insert(place.begin(), path.begin(), path.end());
        rows.push_back({prefix + key, kinds.front(), kinds.back(),
            equals == std::string::npos ? "" : parts[0].substr(equals + 1), place, place,
            parts.size() > 2 ? parsed(parts[2]) : json11::Json()});
    }
    return rows;
}

inline Rows operator+(Rows front, const Rows& behind)
{
    front.insert(front.end(), behind.begin(), behind.end());
    return front;
}

// A copy of the document with one member set. A number is a place in an array.
inline json11::Json with(
    const json11::Json& json, const JsonPath& path, const json11::Json& value, std::size_t at = 0)
{
    if (at == path.size())
        return value;
    if (path[at].find_first_not_of("0123456789") != std::string::npos) {
        json11::Json::object members = json.object_items();
        members[path[at]] = with(members[path[at]], path, value, at + 1);
        return members;
    }
    json11::Json::array elements = json.array_items();
    const std::size_t place = std::stoul(path[at]);
    elements.resize(std::max(elements.size(), place + 1), json11::Json::object{});
    elements[place] = with(elements[place], path, value, at + 1);
    return elements;
}

// Of each kind the flat texts and the JSON that they are. The first is also what an absent key reads as.
using Conversions = std::vector<std::pair<std::string, std::string>>;
inline const std::map<std::string, Conversions> WRITTEN = {
    {"text", {{"", R"("")"}, {"-1", R"("-1")"}, {"two words", R"("two words")"}}},
    {"text?", {{"", "null"}, {"1", R"("1")"}, {" x", R"(" x")"}}},
    {"switch",
        {{"", "false"}, {"1", "true"}, {"-1", "false"}, {" 1", "false"}, {"01", "false"}, {"true", "false"}}},
    {"switch?", {{"", "null"}, {"1", "true"}, {"0", "false"}, {"12", "false"}}},
    {"integer", {{"", "0"}, {"-7.9 px", "-7"}, {" 1e999", "1"}, {"loud", "0"}, {"3000000000", "0"},
                    {"-2147483648", "-2147483648"}}},
    {"integer?", {{"", "null"}, {"-7.9 px", "-7"}, {"loud", "0"}}},
    {"number", {{"", "0"}, {" -2.5 dB", "-2.5"}, {"loud", "0"}, {"1e999", "0"}, {"3e9", "3e9"}}},
    {"number?", {{"", "null"}, {"-2.5", "-2.5"}, {"loud", "0"}}},
    {"level", {{"-2.5", "-2.5"}, {"loud", "0"}}},  // has no member when it is absent
    {"count", {{"", "null"}, {"7.9", "7"}, {"0", "null"}, {"-1", "null"}, {"x", "null"}}},
    {"path", {{"", R"([""])"}, {"/mnt/a b", R"(["", "mnt", "a b"])"}}},
    {"device", {{"", R"("")"}, {"1", "1"}, {"pci:0:1", R"("pci:0:1")"}, {"0:1", "0"},
                   {"3000000000", R"("3000000000")"}}},
    {"none", {{"", R"("")"}}},  // its member doesn't show it
};

// Of each kind the JSON values and the flat texts that they are.
inline const std::map<std::string, Conversions> READ = {
    {"text", {{R"("x")", "x"}, {R"("")", ""}, {"2.5", "2.5"}, {"true", "true"}, {"[1]", "[1]"}}},
    {"switch", {{"true", "1"}, {"false", "0"}, {"1", "0"}, {R"("1")", "0"}}},
    {"integer", {{"-2.9", "-2"}, {R"("loud")", "loud"}, {R"("")", ""}, {"true", "0"}}},
    {"number", {{"-2.5", "-2.5"}, {"1e3", "1000"}, {R"("loud")", "loud"}, {"true", "0"}}},
    {"path", {{R"(["", "mnt", 1])", "/mnt/"}, {R"("x")", ""}}},
};

inline Conversions written_conversions(const std::string& driver, const KeyRow& row)
{
    if (row.written == "driver")
        return {{"", '"' + driver + '"'}, {"another", '"' + driver + '"'}};
    if (row.written == "form")
        return row.sample.is_null() ? Conversions() : Conversions{{row.of_null, row.sample.dump()}};
    return WRITTEN.at(row.written);
}

inline Conversions read_conversions(const std::string& driver, const KeyRow& row)
{
    if (row.read == "driver")
        return {{R"("x11")", driver}, {"5", driver}, {R"("")", driver}};
    Conversions all;
    if (row.read != "form")
        all = READ.at(row.read.substr(0, row.read.find('?')));
    if (!row.sample.is_null())
        all.emplace_back(row.sample.dump(), row.of_null);
    return all;
}

// The document of an item without settings.
inline json11::Json unset(const std::string& driver, const Rows& rows)
{
    json11::Json document = json11::Json::object{};
    for (const KeyRow& row : rows)
        document = with(document, row.path, parsed(written_conversions(driver, row).front().second));
    return document;
}

inline void expect_written(const std::string& driver, const Rows& rows, const json11::Json& empty)
{
    EXPECT_EQ(emitted(driver, {}), empty) << driver;
    for (const KeyRow& row : rows) {
        if (row.written == "none")
            continue;
        for (const auto& [text, json] : written_conversions(driver, row))
            EXPECT_EQ(emitted(driver, {{row.key, text}}), with(empty, row.path, parsed(json)))
                << driver << ": " << row.key << "=" << text;
    }
}

// Every member alone, and then all in order. `forget` takes out what other members add.
inline void expect_read(
    const std::string& driver, const Rows& rows, json11::Json all = json11::Json::object{},
    const std::function<void(Pairs&)>& forget = [](Pairs&) {})
{
    Pairs all_pairs;
    for (const KeyRow& row : rows) {
        for (const auto& [json, text] : read_conversions(driver, row)) {
            const std::string document = with({}, row.read_path, parsed(json)).dump();
            Pairs pairs = consumed(driver, document);
            forget(pairs);
            EXPECT_EQ(pairs, (Pairs{{row.key, text}})) << driver << " of " << document;
        }
        if (row.path != row.read_path) {
            EXPECT_EQ(consumed(driver, with({}, row.path, "x").dump()), Pairs()) << driver << ": " << row.key;
        }
        all = with(all, row.read_path, row.sample);
        all_pairs.emplace_back(row.key, row.of_null);
    }
    EXPECT_EQ(consumed(driver, all.dump()), all_pairs) << driver;
    EXPECT_EQ(consumed(driver, "{}"), Pairs()) << driver;
}
