// A driver's document as a list of its flat keys, and the tests that every list must pass.
#pragma once

#include <algorithm>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <map>

#include "schema/composite_text.hpp"
#include "schema/create_consumer.hpp"
#include "schema/create_emitter.hpp"
#include "unit/schema_testing.hpp"

using json11::Json;
using Pairs = SettingValues;

inline Json emitted(const std::string& driver, const Pairs& settings)
{
    const auto emitter = createEmitter(driver);
    InfoList list;
    for (const auto& [key, value] : settings)
        list[key].value = value;
    emitter->add(std::move(list));
    return emitter->emitJson();
}

inline Pairs consumed(const std::string& driver, const std::string& document)
{
    const auto consumer = createConsumer(driver, document);
    consumer->createItems();
    return consumer->items();
}

// Of a member: what it is without a text, a text and the value that it is, and a value and the text that it
// is.
struct Kind {
    const char *unset, *text, *written, *json, *read;
};
// clang-format off
inline const std::map<std::string, Kind> KINDS = {
    {"text", {R"("")", "a b", R"("a b")", "2.5", "2.5"}},
    {"text?", {"null", " x", R"(" x")", R"("x")", "x"}},
    {"switch", {"false", "1", "true", "1", "0"}},
    {"switch?", {"null", "01", "false", "true", "1"}},
    {"integer", {"0", "-7.9 px", "-7", "-2.9", "-2"}},
    {"integer?", {"null", "-7.9 px", "-7", "2.9", "2"}},
    {"number", {"0", " -2.5 dB", "-2.5", "1e3", "1000"}},
    {"number?", {"null", "loud", "0", "-2.5", "-2.5"}},
    {"level", {nullptr, "-2.5", "-2.5", "-2.5", "-2.5"}},  // no member without a text
    {"count", {"null", "7.9", "7", "7.9", "7"}},
    {"path", {R"([""])", "/mnt/a b", R"(["", "mnt", "a b"])", R"(["", "mnt", 1])", "/mnt/"}},
    {"driver", {R"("DRIVER")", "another", R"("DRIVER")", R"("x11")", "DRIVER"}},
    {"shared switch", {"false", "0", "false", "true", "1"}},  // of a key that is two members
    {"shared text", {R"("")", "", R"("")", R"("x")", "x"}},
    {"form", {}},  // its sample alone
    {"none", {}},  // not in this direction
};
// clang-format on

struct KeyRow {
    std::string key, written, read;  // and its kinds
    std::string of_null;             // what a null writes
    JsonPath path, read_path;
    Json sample;  // of a member whose null writes nothing: the value that writes of_null instead
    Json empty;   // of a form: what it is without a text
};

using Rows = std::vector<KeyRow>;

// The lists of document_keys.txt by their names: driver words, and parts of lists in capitals.
inline std::map<std::string, std::string> key_lists()
{
    std::map<std::string, std::string> lists;
    std::ifstream file(TESTS "/unit/document_keys.txt");
    std::string name;
    for (std::string line; std::getline(file, line);) {
        const std::size_t colon = line[0] == ' ' || line[0] == '#' ? 0 : line.find(':') + 1;
        if (colon > 0)
            name = line.substr(0, colon - 1);
        lists[name] += line.substr(colon);
    }
    for (auto& [words, list] : lists)
        list = replaced(list, "NORMALIZER", lists["NORMALIZER"]);
    return lists;
}

// The rows of a list such as "item; drm master:switch=0@kms.master.enable; catch up speed:number?/number":
// flat keys, each with its kinds, what its null writes, the place of its member below `path`, a sample and
// the empty form. Without a place a member has the name of its key with underscores, and none begins with a
// digit.
inline Rows rows(const std::string& list, const std::string& usual_kind = "text?", const JsonPath& path = {},
    const std::string& prefix = "")
{
    Rows rows;
    for (std::string entry : split(list, ";")) {
        entry.erase(0, entry.find_first_not_of(" \n"));
        const std::vector<std::string> parts = split(entry + "@@@@", "@");
        const std::size_t colon = parts[0].find(':');
        const std::size_t equals = parts[0].find('=', colon == std::string::npos ? 0 : colon);
        const std::string key = parts[0].substr(0, std::min(colon, equals));
        const std::vector<std::string> kinds = split(
            colon == std::string::npos ? usual_kind : parts[0].substr(colon + 1, equals - colon - 1), "/");
        const bool digit_first = path.empty() && !key.empty() && key[0] >= '0' && key[0] <= '9';
        JsonPath place = parts[1].empty() ? JsonPath{(digit_first ? "_" : "") + key} : split(parts[1], ".");
        if (parts[1].empty())
            for (char& c : place[0])
                c = std::string_view(" ,./-").find(c) == std::string_view::npos ? c : '_';
        place.insert(place.begin(), path.begin(), path.end());
        rows.push_back({prefix + key, kinds.front(), kinds.back(),
            equals == std::string::npos ? "" : parts[0].substr(equals + 1), place, place,
            parts[2].empty() ? Json() : parsed(parts[2]), parts[3].empty() ? Json() : parsed(parts[3])});
    }
    return rows;
}

inline Rows operator+(Rows front, const Rows& behind)
{
    front.insert(front.end(), behind.begin(), behind.end());
    return front;
}

// A copy of the document with one member set. A number is a place in an array.
inline Json with(const Json& json, const JsonPath& path, const Json& value, std::size_t at = 0)
{
    if (at == path.size())
        return value;
    Json::object members = json.object_items();
    Json::array elements = json.array_items();
    if (path[at].find_first_not_of("0123456789") != std::string::npos) {
        members[path[at]] = with(members[path[at]], path, value, at + 1);
        return members;
    }
    elements.resize(std::max(elements.size(), std::stoul(path[at]) + 1), Json::object{});
    elements[std::stoul(path[at])] = with(elements[std::stoul(path[at])], path, value, at + 1);
    return elements;
}

// The document of an item without settings.
inline Json unset(const std::string& driver, const Rows& rows)
{
    Json document = Json::object{};
    for (const KeyRow& row : rows)
        if (const char* const json = KINDS.at(row.written).unset)
            document = with(document, row.path, parsed(replaced(json, "DRIVER", driver)));
        else if (row.written == "form")
            document = with(document, row.path, row.empty);
    return document;
}

// Every member alone, and then all without a value in their order. `forget` takes out what other members add.
inline void expect_both_ways(
    const std::string& driver, const Rows& rows, const std::function<void(Pairs&)>& forget = [](Pairs&) {})
{
    const Json empty = unset(driver, rows);
    EXPECT_EQ(emitted(driver, {}), empty) << driver;
    Json nulls = Json::object{};
    Pairs pairs_of_nulls;
    for (const KeyRow& row : rows) {
        const Kind sample = {"", row.of_null.c_str(), nullptr, nullptr, row.of_null.c_str()};
        const auto kind = [&](const std::string& name) { return name == "form" ? sample : KINDS.at(name); };
        const auto json = [&](const char* text) {
            return text ? parsed(replaced(text, "DRIVER", driver)) : row.sample;
        };
        const Kind out = kind(row.written), in = kind(row.read);
        if (out.text && (out.written || !row.sample.is_null())) {
            EXPECT_EQ(emitted(driver, {{row.key, out.text}}), with(empty, row.path, json(out.written)))
                << row.key;
        }
        if (in.read && (in.json || !row.sample.is_null())) {
            Pairs pairs = consumed(driver, with({}, row.read_path, json(in.json)).dump());
            forget(pairs);
            EXPECT_EQ(pairs, (Pairs{{row.key, replaced(in.read, "DRIVER", driver)}})) << driver;
        }
        nulls = with(nulls, row.read_path, row.sample);
        if (row.read != "none")
            pairs_of_nulls.emplace_back(row.key, row.of_null);
    }
    EXPECT_EQ(consumed(driver, nulls.dump()), pairs_of_nulls) << driver;
    EXPECT_EQ(consumed(driver, "{}"), Pairs()) << driver;
}
