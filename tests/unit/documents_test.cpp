// Documents and the settings that they are, both ways.
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>

#include "schema/composite_text.hpp"
#include "schema/create_consumer.hpp"
#include "schema/create_emitter.hpp"
#include "schema/json_path.hpp"
#include "schema/schemas.hpp"
#include "unit/schema_testing.hpp"

using json11::Json;

namespace {

Json emitted(const std::string& driver, const SettingValues& settings)
{
    const auto emitter = createEmitter(driver);
    InfoList list;
    for (const auto& [key, value] : settings)
        list[key].value = value;
    emitter->add(std::move(list));
    return emitter->emitJson();
}

SettingValues consumed(const std::string& driver, const std::string& document)
{
    const auto consumer = createConsumer(driver, document);
    consumer->createItems();
    return consumer->items();
}

struct Member {
    std::string path, key;
    bool is_written, is_read;
};

// A document in which each member that is read is "@".
struct Tree {
    std::map<std::string, Tree> members;

    Json json() const
    {
        Json::object object;
        for (const auto& [name, member] : members)
            object[name] = member.json();
        if (!members.contains("0"))
            return members.empty() ? Json("@") : object;
        Json::array array;
        for (const auto& [place, element] : object)
            array.push_back(element);
        return array;
    }
};

std::string whole_document(const std::vector<Member>& members)
{
    Tree document;
    for (const Member& member : members)
        if (Tree* at = &document; member.is_read)
            for (const std::string& name : split(member.path, "."))
                at = &at->members[name];
    return document.json().dump();
}

constexpr const char* TEXTS[] = {
    "", "1", "-1", "-2.5", "25:1p", "/a//b", "top", "None", "if no audio", "decibelm5"};
constexpr const char* VALUES[] = {"null", "true", R"("x")", "2.9",
    R"({"count": 2, "units": "frames", "width": 3, "height": 4, "x": 5, "y": 6, "numerator": 7, "denominator": 8,
        "kind": "music", "vertical": "top", "mode": "decibel", "intensity": 9})"};

// Two keys of a channel end the run where the text is none of theirs.
Json emitted_with_all(const Schema& schema, const std::vector<Member>& members, const char* text)
{
    SettingValues settings;
    for (const Member& member : members)
        settings.emplace_back(member.key, member.key == "audio meter"          ? "-1, -inf"
                                          : member.key == "video aspect ratio" ? "16:9"
                                                                               : text);
    return emitted(std::string(schema.driver), settings);
}

// Where a member stands, what texts become in the documents, and what values became in the settings.
std::string seen_of(
    const Member& member, const std::vector<Json>& documents, const std::vector<SettingValues>& read)
{
    std::string text = member.path + " of \"" + member.key + "\", written:";
    for (const Json& document : documents)
        if (const Json* const json = member.is_written ? member_at(&document, member.path) : nullptr)
            text += " " + json->dump();
    text += ", read:";
    for (const SettingValues& settings : read)
        for (const auto& [key, value] : settings)
            text += member.is_read && key == member.key ? " " + value : "";
    return text + "\n";
}

// All that is to be seen of a document from outside: of each member, with the elements of an array as one,
// and of the order of the settings.
std::vector<std::string> seen(const Schema& schema)
{
    std::vector<Member> members;
    for_each_member(
        schema.rows, [&](const std::string& path, const std::string& key, const MemberFace& face) {
            members.push_back({path, key, face.is_written(), face.is_read()});
        });
    std::vector<Json> documents;
    for (const char* text : TEXTS)
        documents.push_back(emitted_with_all(schema, members, text));
    std::vector<SettingValues> read;
    for (const char* value : VALUES)
        read.push_back(
            consumed(std::string(schema.driver), replaced(whole_document(members), R"("@")", value)));
    std::map<std::string, std::size_t> places;
    std::vector<std::string> all;
    for (const Member& member : members) {
        const std::string path = std::regex_replace(member.path, std::regex("\\.[0-9]\\."), ".#.");
        const auto [at, is_new] = places.emplace(path, all.size());
        all.resize(places.size());
        all[at->second] += seen_of(member, documents, read);
    }
    all.emplace_back("the order of the settings: ");
    for (const auto& [key, value] : read.front())
        all.back() += key + ";";
    all.back() += "\n";
    return all;
}

std::string digest(const std::string& text)
{
    std::uint32_t hash = 2166136261U;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    char digits[9];
    std::snprintf(digits, sizeof digits, "%03x", (hash ^ hash >> 12 ^ hash >> 24) & 0xfff);
    return digits;
}

// What stands behind a driver's word in the file of digests.
std::vector<std::string> expected_digests(const std::string& driver)
{
    std::ifstream file(TESTS "/unit/documents.txt");
    std::vector<std::string> digests;
    std::string of;
    for (std::string word; file >> word;)
        if (word.back() == ':')
            of = word;
        else if (of == driver + ":")
            digests.push_back(word);
    return digests;
}

// A digest changes with whatever is to be seen of its member. Where that is wanted, what the test prints
// takes the place of the driver's digests.
TEST(Documents, HaveTheMembersThatFrontEndsKnow)
{
    for (const Schema& schema : SCHEMAS) {
        const std::string driver(schema.driver);
        const std::vector<std::string> expected = expected_digests(driver);
        std::vector<std::string> digests;
        std::string entry = driver + ":", others;
        std::size_t width = entry.size();
        for (const std::string& text : seen(schema)) {
            digests.push_back(digest(text));
            entry += (width > 110 ? "\n    " : " ") + digests.back();
            width = width > 110 ? 7 : width + 4;
            if (std::find(expected.begin(), expected.end(), digests.back()) == expected.end() &&
                others.size() < 2000)
                others += text;
        }
        EXPECT_TRUE(digests == expected) << driver << " has other members now, or others in another order:\n"
                                         << others << entry;
    }
}

TEST(Documents, ChangeOnlyWhatTheyName)
{
    const struct {
        const char* driver;
        const char* document;
        SettingValues settings;
    } cases[] = {
        {"x11", "not JSON", {}},
        {"x11", "[1]", {}},
        {"x11", "{}", {}},
        {"x11", R"({"debug": 1, "video": null})", {{"last error", ""}, {"last notes", ""}}},
        {"drmkms", R"({"kms": {"connector": {}, "master": {"using": true}}})",
            {{"using drm as master", "1"}}},
        {"trigger_rs232", R"({"driver": "trigger_rs232"})", {}},
        {"video_passthru", R"({"2_encoding": "0", "2 encoding": "0", "mpeg_cpu_threshold": "5"})", {}},
        // Words that are no driver's have the channel's document. A nameless pair takes the place of a policy
        // that is missing.
        {"newtek_ndi", R"({"name": "One"})", {{"channel name", "One"}, {"", ""}}},
        {"X11", R"({"name": "One"})", {{"channel name", "One"}, {"", ""}}},
        {"channel", "{}", {}},
        {"channel", R"({"unknown": 1})", {{"", ""}}},
        {"channel", R"({"behavior": null, "audio": "x", "video": [], "regions": true})", {{"", ""}}},
        {"", R"({"regions": {"urgent": {"enable": true}, "alerts": {"text": {"enable": null}}}})",
            {{"urgent enable", "1"}, {"", ""}, {"eas scroll text enable", "1"}}},
        // An alignment is read wherever its object stands, and a global item only in front of the first null.
        {"channel", R"({"regions": {"item": {"video": {}}, "urgent": {"audio": {}}}})",
            {{"item align", "center center"}, {"", ""}}},
        {"channel", R"({"regions": {"global": [{"enable": true}, null, {"enable": true}]}})",
            {{"", ""}, {"global item 1 enable", "1"}}},
        {"channel", R"({"regions": {"global": {"0": {"enable": true}}}})", {{"", ""}}},
        {"shoutcast",
            R"({"enc": [{"rate": "1"}, null, {"rate": "3", "mp3__strict_iso": "1"}, {"rate": "4"}]})",
            {{"enc0, rate", "1"}, {"enc2, rate", "3"}}},
        {"internet_mpeg",
            R"({"enc": [null, {"audio": {"rate": 48000}, "asi": null}, {"ps": {"vbr": null}}]})",
            {{"enc1, audio, rate", "48000"}, {"enc2, ps, vbr", "1"}}},
        // Output j of every encoder hangs on output j of encoder j.
        {"internet_mpeg",
            R"({"enc": [{"asi": [{}, {"path": "/a"}]}, {"asi": [{}, null]}, {"asi": [{}, {"path": "/c"}]}]})",
            {}},
        {"internet_mpeg",
            R"({"enc": [{"asi": [null, {"path": "/a"}]}, {"asi": [null, {}]}, {"asi": [null, {"path": "/c"}]}]})",
            {{"enc0, asi2, path", "/a"}, {"enc2, asi2, path", "/c"}}},
    };
    for (const auto& [driver, document, settings] : cases)
        EXPECT_EQ(consumed(driver, document), settings) << driver << document;
    EXPECT_THROW(consumed("x11", R"({"x11": []})"), std::invalid_argument);
}

}  // namespace
