#include "tools/seeds.hpp"

#include <algorithm>
#include <set>

#include "platform/packet.hpp"
#include "schema/composite_text.hpp"
#include "schema/create_consumer.hpp"
#include "tools/json_schema.hpp"
#include "tools/manifest.hpp"

using json11::Json;

namespace {

using Words = std::set<std::string>;
using Texts = std::map<std::string, std::string>;

Json scalar_of(const Json& type)
{
    return type == "string" ? Json("a/b") : type == "boolean" ? Json(true) : Json(7);
}

// A value that the JSON Schema allows, with all members in it, of arrays those of the first element; or the
// same with another value in the place of all that are no groups. Adds their names and usual words.
Json sample_of(const Json& schema, Words& words, const Json* instead = nullptr)
{
    for (const char* offered : {"enum", "examples", "anyOf"})
        if (const Json& choices = schema[offered]; choices.is_array()) {
            for (const Json& word : choices.array_items())
                words.insert(word.is_string() ? word.string_value() : "null");
            return choices[0].is_object() ? sample_of(choices[0], words, instead)
                   : instead              ? *instead
                                          : choices[0];
        }
    const Json& type = schema["type"].is_array() ? schema["type"][0] : schema["type"];
    if (type == "array")
        return Json::array{sample_of(
            schema["prefixItems"].is_array() ? schema["prefixItems"][0] : schema["items"], words, instead)};
    if (type != "object")
        return instead ? *instead : scalar_of(type);
    Json::object members;
    for (const auto& [name, member] : schema["properties"].object_items())
        members[*words.insert(name).first] = sample_of(member, words, instead);
    return members;
}

// A list in the place of each of the groups.
Json misfit(const Json& document)
{
    Json::object members = document.object_items();
    for (auto& [name, member] : members)
        member = Json::array{7};
    return members;
}

// Of arrays the first element is enough.
bool is_of_later_element(const std::string& path)
{
    const std::vector<std::string> names = split(path, ".");
    return std::any_of(names.begin(), names.end(), [](const std::string& name) {
        return name != "0" && name.find_first_not_of("0123456789") == name.npos;
    });
}

// What the document sets, and for other keys what they count as, or else a text that each coding takes.
Texts settings_of(const Schema& schema, const std::string& document)
{
    const auto consumer = createConsumer(std::string(schema.driver), document);
    consumer->createItems();
    Texts settings(consumer->items().begin(), consumer->items().end());
    for_each_member(
        schema.rows, [&](const std::string& path, const std::string& key, const MemberFace& member) {
            if (!is_of_later_element(path))
                settings.emplace(key, member.usual().empty() ? "-18.5,-inf" : member.usual());
        });
    return settings;
}

// A reply has pairs of name and value, a request has values alone.
std::string packet_of(const char* command, std::uint8_t flags, const Texts& entries)
{
    packet::Writer writer;
    writer.begin(command, flags, 1);
    for (const auto& [name, value] : entries)
        if (flags == packet::FLAG_REQUEST)
            writer.add(name.c_str()), writer.add(value.c_str());
        else
            writer.add(("*" + name).c_str(), value.c_str());
    writer.finish();
    return {writer.bytes().begin(), writer.bytes().end()};
}

// The appliance with one item, by its settings or by a document.
Json appliance_of(const Schema& schema, const char* member, const Json& value)
{
    constexpr const char* MEMBERS[] = {"channels", "outputs", "inputs", "routers"};
    Json::object item{
        {member, value}, {"driver", std::string(schema.driver)}, {"state", "running"}, {"supervised", true}};
    for (const InputType& type : INPUT_TYPES)
        if (schema.driver == type.driver)
            item["type"] = type.marker;
    return Json::object{{MEMBERS[static_cast<int>(schema.kind) - 1], Json::object{{"channel1", item}}}};
}

// In each of the targets that know drivers, the first byte of an input tells which it is of.
void add_seeds(Texts& seeds, const Schema& schema, Words& words)
{
    const std::string word(schema.driver);
    const std::string driver(1, static_cast<char>(&schema - SCHEMAS));
    std::string error;
    const Json json_schema = Json::parse(json_schema_of(schema), error);
    const Json document = sample_of(json_schema, words);
    const Texts settings = settings_of(schema, document.dump());
    std::string lines = "#multiline\n";
    std::string metadata;
    for (const auto& [key, value] : settings) {
        words.insert(key);
        lines.append(key).append("=").append(value).append("\n");
        metadata.append("0\t").append(key).append("\t").append(value).append("\n");
    }
    const std::string manifest = manifest_of(schema, {});
    const auto with = [&](const Json& value) { return sample_of(json_schema, words, &value); };
    const std::pair<const char*, Json> documents[] = {{"", document}, {"_misfit", misfit(document)},
        {"_nulls", with(nullptr)}, {"_texts", with("-2.5")}, {"_lists", with(Json::array{Json::object{}})}};
    for (const auto& [what, json] : documents)
        for (const char* target : {"documents/", "checks/document_"})
            seeds[target + word + what] = driver + json.dump();
    seeds["appliances/settings_" + word] =
        appliance_of(schema, "settings", Json::object(settings.begin(), settings.end())).dump();
    seeds["appliances/document_" + word] = appliance_of(schema, "document", document).dump();
    seeds["checks/settings_" + word] = driver + lines;
    seeds["checks/manifest_" + word] = driver + manifest;
    seeds["manifests/" + word] = manifest;
    seeds["metadata/" + word] = metadata;
    seeds["reports/" + word] = driver + packet_of("report", 0, settings);
    seeds["settings/" + word] = lines;
}

}  // namespace

Texts fuzz_seeds()
{
    Texts seeds;
    Words words;
    for (const Schema& schema : SCHEMAS)
        add_seeds(seeds, schema, words);
    seeds["appliances/lines"] =
        R"({"outputs": {"a": {"settings": {"k": ["1", "", "2"], "l": null, "\u006d": ""}}}, "inputs": []})";
    seeds["server/report"] = packet_of("report", packet::FLAG_REQUEST, {});
    seeds["server/set"] = packet_of("set", packet::FLAG_REQUEST, {{"title", "text"}});
    words.erase("");
    for (const std::string& word : words)
        seeds["dictionary"] += Json(word).dump() + "\n";
    return seeds;
}
