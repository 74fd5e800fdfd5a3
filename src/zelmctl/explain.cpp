#include "zelmctl/explain.hpp"

#include <algorithm>
#include <boost/algorithm/string/join.hpp>
#include <cstdio>

#include "schema/codings.hpp"
#include "schema/json_schema/document_schema.hpp"
#include "zelmctl/appliance/stored_item.hpp"
#include "zelmctl/check/document_shape.hpp"
#include "zelmctl/check/findings.hpp"
#include "zelmctl/check/known_settings.hpp"
#include "zelmctl/found_items.hpp"
#include "zelmctl/printable.hpp"

using json11::Json;

namespace {

constexpr char EXPLAIN_HELP[] = R"(usage: zelmctl explain [--json] DRIVER|ITEM [KEY|MEMBER]

Says what the members of a driver's document are: their names there and in a settings file, what they hold, what they
count as when they are not set, and what a null gives. DRIVER is "channel" for channels, and an ITEM like output/main
is explained by its own driver. Without a key or a member (a path such as x11.title) they are a table.

  --json  print one JSON object

Exit status: 0, 2 unknown words or trouble.
)";

struct Member {
    std::string path;
    std::string key;
    MemberFace face;
    Json schema;
    bool needs_restart = false;  // before a running driver heeds it

    const Marks& marks() const { return face.row->marks; }
    bool is_set() const { return face.is_read() && !key.empty() && !marks().status; }
    bool is_told() const { return is_set() && !needs_restart; }
};

void add_members(
    std::vector<Member>& members, const Shape& shape, const Json& schema, const std::string& path)
{
    for (const auto& [name, inner] : shape.members) {
        const Json& described = !shape.is_array()                  ? schema["properties"][name]
                                : schema["prefixItems"].is_array() ? schema["prefixItems"][std::stoul(name)]
                                                                   : schema["items"];
        if (inner.is_group())
            add_members(members, inner, described, joined(path, name));
        else
            members.push_back({joined(path, name), key_in_file(inner.key), inner.member, described});
    }
}

// What a null alone stores: nothing where the key goes, and none where it is left as it is.
codings::MaybeText null_text_of(const Member& member)
{
    const Json around = Json::object();
    const Json null;
    const Face& face = *member.face.face;
    return member.is_set() ? codings::read(face.coding, {&around, &null}, face.null_text) : std::nullopt;
}

std::string effect_of_null(const Member& member)
{
    const auto text = null_text_of(member);
    if (!text)
        return member.is_set() ? "leaves it as it is" : "";
    return text->empty() ? "removes it" : "stores " + in_quotes(*text);
}

std::string effect_of_set(const Member& member)
{
    return member.is_told()        ? "a running driver is told"
           : member.is_set()       ? "a running item has to be restarted"
           : member.marks().status ? "no, it is status"
                                   : "no";
}

// The first type is what the member usually is. Words alone are texts.
std::string type_of(const Json& schema)
{
    const Json& alternatives = schema["anyOf"];
    const Json& type = alternatives.is_array() ? alternatives.array_items().back()["type"] : schema["type"];
    return type.is_null() ? "string" : type.is_array() ? type[0].string_value() : type.string_value();
}

std::string default_of(const Json& schema)
{
    return schema.object_items().contains("default") ? schema["default"].dump() : "";
}

std::string values_of(const Json& schema);

std::string part_called(const std::string& name, const Json& part)
{
    const std::string values = values_of(part);
    const std::string usual = default_of(part);
    return name + " (" + type_of(part) + (values.empty() ? "" : ", ") + values +
           (usual.empty() ? "" : ", default ") + usual + ")";
}

// Words, a range, and the parts of a composite.
std::string values_of(const Json& schema)
{
    std::vector<std::string> values;
    const bool is_open = schema["anyOf"].is_array();
    for (const Json& word : (is_open ? schema["anyOf"][0] : schema)["enum"].array_items())
        values.push_back(word.dump());
    if (is_open)
        values.emplace_back("or others");
    if (schema["maximum"].is_number())
        values.push_back("from " + schema["minimum"].dump() + " to " + schema["maximum"].dump());
    for (const auto& [name, part] : schema["properties"].object_items())
        values.push_back(part_called(name, part));
    return boost::algorithm::join(values, ", ");
}

void print_fact(const char* name, const std::string& fact)
{
    if (!fact.empty())
        std::printf("%-9s%s\n", name, printable(fact).c_str());
}

void print_member(const Member& member)
{
    print_fact("member", member.path);
    print_fact("key", member.key);
    print_fact("type", type_of(member.schema));
    print_fact("values", values_of(member.schema));
    print_fact("default", default_of(member.schema));
    print_fact("null", effect_of_null(member));
    print_fact("set", effect_of_set(member));
    print_fact("secret", member.marks().secret ? "yes, it gives access" : "");
    print_fact("about", std::string(member.face.row->description));
}

std::string kind_of(const Member& member)
{
    const Marks& marks = member.marks();
    return type_of(member.schema) + (marks.status ? " status" : marks.secret ? " secret" : "");
}

// Columns are as wide as the longest of their texts.
void print_table(const std::vector<Member>& members)
{
    constexpr int KIND = 14;
    int paths = 0;
    int keys = 0;
    for (const Member& member : members) {
        paths = std::max(paths, static_cast<int>(member.path.size()));
        keys = std::max(keys, static_cast<int>(member.key.size()));
    }
    for (const Member& member : members) {
        const std::string usual = default_of(member.schema);
        std::printf("%-*s  %-*s  %-*s%s\n", paths, member.path.c_str(), keys, member.key.c_str(),
            usual.empty() ? 0 : KIND, kind_of(member).c_str(), usual.empty() ? "" : ("  " + usual).c_str());
    }
}

void print_json(const std::string& driver, const std::vector<Member>& members)
{
    Json::array array;
    for (const Member& member : members) {
        const auto null_text = null_text_of(member);
        array.push_back(Json::object{{"member", member.path}, {"key", member.key},
            {"null", null_text ? Json(*null_text) : Json()}, {"status", member.marks().status},
            {"secret", member.marks().secret}, {"told", member.is_told()}, {"schema", member.schema}});
    }
    std::puts(Json(Json::object{{"driver", driver}, {"members", array}}).dump().c_str());
}

// The item of that name, if there is one.
std::optional<ItemId> item_called(const std::string& word)
{
    Selection selection;
    const bool is_item = selection.add(word);
    const FoundItems found = is_item ? find_items(selection) : FoundItems();
    return found.items.empty() ? std::nullopt : std::optional(found.items.front());
}

// Leaves those that are called so, by path or key, and those below such a path.
void keep_named(std::vector<Member>& members, const std::string& name)
{
    std::erase_if(members, [&](const Member& member) {
        return member.path != name && member.key != name && !member.path.starts_with(name + ".");
    });
}

Status explain_driver(const Schema& schema, const Options& options)
{
    const std::string driver(schema.driver);
    const KnownDocument& document = known_document(schema);
    std::vector<Member> members;
    add_members(members, document.shape, document_schema(schema), {});
    for (Member& member : members)
        member.needs_restart = member.key == "driver" && schema.kind != ItemKind::INPUT;
    const bool is_whole = options.words.size() == 1;
    if (!is_whole)
        keep_named(members, options.words[1]);
    if (members.empty()) {
        const std::string& name = options.words[1];
        return complain("the driver " + driver + " has no " + in_quotes(name) +
                        suggestion(name.substr(name.rfind('.') + 1), name, document.names));
    }
    if (options.json)
        print_json(driver, members);
    else if (is_whole)
        print_table(members);
    for (const Member& member : members)
        if (!options.json && !is_whole) {
            std::fputs(&member == members.data() ? "" : "\n", stdout);
            print_member(member);
        }
    return IS_SO;
}

Status explain(const Options& options)
{
    const std::string& word = options.words[0];
    if (options.words.size() > 2)
        return complain("explain: unknown word " + options.words[2]);
    std::string driver = word;
    if (word.find('/') != word.npos) {
        const auto id = item_called(word);
        const auto item = id ? read_stored_item(*id) : std::nullopt;
        if (!item)
            return complain(word + ": no such item");
        driver = driver_of(*id, *item);
    }
    if (const Schema* const schema = find_schema(driver); schema && !driver.empty())
        return explain_driver(*schema, options);
    return complain(
        "the driver " + in_quotes(driver) + " has no document" + suggestion(driver, {}, driver_words()));
}

}  // namespace

const Subcommand EXPLAIN{"explain", "--json", Items::WORDS, EXPLAIN_HELP, explain};
