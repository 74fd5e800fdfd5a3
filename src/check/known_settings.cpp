#include "check/known_settings.hpp"

namespace {

// What the tools themselves read of items of every kind.
constexpr const char* KEYS_OF_ALL[] = {"driver", "autostart", "autorestart"};

// Regions of a channel that have no place in its document.
constexpr const char* ALTERNATIVES[] = {"!alt1", "!alt2"};

void add_rows(KnownSettings& known, std::span<const Row> rows, const std::string& key_prefix = {})
{
    const auto add = [&](const std::string&, const std::string& key, const Row& row) {
        if (!key.empty())
            known[key.substr(0, key.find('='))].push_back(&row);
    };
    for_each_member(rows, add, {}, key_prefix);
}

}  // namespace

const Schema* find_schema(std::string_view driver)
{
    for (const Schema& schema : SCHEMAS)
        if (schema.driver == (driver.empty() ? "channel" : driver))
            return &schema;
    return nullptr;
}

std::vector<KnownName> driver_words()
{
    std::vector<KnownName> words;
    for (const Schema& schema : SCHEMAS)
        words.push_back({std::string(schema.driver), {}});
    return words;
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
