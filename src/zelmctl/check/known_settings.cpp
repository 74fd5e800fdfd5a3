#include "zelmctl/check/known_settings.hpp"

#include <algorithm>
#include <cstdlib>
#include <set>

#include "schema/driver_words.hpp"

namespace {

// What the tools themselves read of items of every kind.
constexpr const char* KEYS_OF_ALL[] = {"driver", "autostart", "autorestart"};

// Those of them that count by being above 0.
constexpr const char* SWITCHES_OF_ALL[] = {"autostart", "autorestart"};

// Regions of a channel that have no place in its document.
constexpr const char* ALTERNATIVES[] = {"!alt1", "!alt2"};

void add_rows(KnownSettings& known, std::span<const Row> rows, const std::string& key_prefix = {})
{
    const auto add = [&](const std::string&, const std::string& key, const MemberFace& member) {
        if (!key.empty())
            known[key_in_file(key)].push_back(member);
    };
    for_each_member(rows, add, {}, key_prefix);
}

}  // namespace

std::vector<KnownName> driver_words()
{
    std::vector<KnownName> words;
    for (const Schema& schema : SCHEMAS)
        words.push_back({std::string(schema.driver), {}});
    return words;
}

// Any word may be the driver of a router.
bool has_no_document(std::string_view driver, ItemKind kind)
{
    return kind == ItemKind::ROUTER || is_driver_word(driver, kind);
}

KnownSettings known_settings(const Schema& schema)
{
    KnownSettings known;
    for (const char* key : KEYS_OF_ALL)
        known[key];
    add_rows(known, schema.rows);
    if (schema.kind == ItemKind::CHANNEL)
        for (const char* region : ALTERNATIVES)
            add_rows(known, fields::REGION, region);
    return known;
}

bool is_secret(std::string_view key)
{
    static const auto keys = [] {
        std::set<std::string, std::less<>> marked;
        for (const Schema& schema : SCHEMAS)
            for_each_member(
                schema.rows, [&](const std::string&, const std::string& name, const MemberFace& member) {
                    if (member.row->marks.secret)
                        marked.insert(key_in_file(name));
                });
        return marked;
    }();
    return keys.contains(key);
}

bool counts_as_off(std::string_view key, const std::string& text)
{
    if (text.empty() ||
        std::find(std::begin(SWITCHES_OF_ALL), std::end(SWITCHES_OF_ALL), key) == std::end(SWITCHES_OF_ALL))
        return false;
    char* end = nullptr;
    std::strtol(text.c_str(), &end, 10);
    return end == text.c_str();
}

// The last name of a path alone says enough where one key has it.
std::vector<KnownName> names_of_keys(const Schema& schema, const KnownSettings& known)
{
    std::vector<KnownName> names;
    for (const auto& [key, members] : known)
        names.push_back({key, {}});
    std::map<std::string, std::set<std::string>> keys_of;
    for_each_member(schema.rows, [&](const std::string& path, const std::string& key, const MemberFace&) {
        if (key.empty())
            return;
        keys_of[path].insert(key_in_file(key));
        keys_of[path.substr(path.rfind('.') + 1)].insert(key_in_file(key));
    });
    for (const auto& [name, keys] : keys_of)
        if (keys.size() == 1)
            names.push_back({name, *keys.begin()});
    return names;
}
