#include "zelmctl/check/check_document.hpp"

#include <algorithm>
#include <set>

#include "schema/codings.hpp"
#include "zelmctl/check/document_effect.hpp"
#include "zelmctl/check/document_shape.hpp"
#include "zelmctl/check/json_position.hpp"
#include "zelmctl/check/known_settings.hpp"
#include "zelmctl/check/value_change.hpp"

using json11::Json;

namespace {

std::string shown(const Json& json)
{
    if (json.is_string())
        return in_quotes(json.string_value());
    const std::string text = plain(json);
    return beginning_of(text) + (beginning_of(text).size() < text.size() ? "..." : "");
}

bool holds_nothing(const Json& json)
{
    return json.is_null() || json == Json("") || json == Json(Json::object()) || json == Json(Json::array());
}

// A document with nothing in it but the value at that path.
Json document_with(const std::string& path, Json value)
{
    std::vector<std::string> names = split(path, ".");
    for (; !names.empty(); names.pop_back()) {
        const std::string& name = names.back();
        if (is_place(name)) {
            Json::array elements(std::stoul(name), Json::object());
            elements.push_back(std::move(value));
            value = std::move(elements);
        } else {
            value = Json::object{{name, std::move(value)}};
        }
    }
    return value;
}

class DocumentCheck {
public:
    DocumentCheck(const Schema& schema, Findings& findings)
        : m_kind(schema.kind), m_driver(schema.driver), m_shape(known_document(schema).shape),
          m_names(known_document(schema).names), m_findings(findings)
    {
    }

    void check(const Json& document, const std::string& text)
    {
        const Json harmless = check_group(document, m_shape, {});
        auto effect = effect_of(m_driver, text);
        if (!effect)
            effect = effect_of(m_driver, harmless.dump());
        if (!effect)
            return m_findings.add({"the document would end the run abnormally"});
        for (const Member& member : m_members)
            check_effect(member, *effect);
        check_unnamed(*effect);
    }

private:
    // A known member that the document has.
    struct Member {
        std::string path;
        const Shape* shape;
        Json value;
        codings::MaybeText text;  // what it is read as by itself
    };

    // What is looked at comes back without all that would end the run; nothing if it would itself.
    std::optional<Json> look_at(
        const Json& json, const Shape& shape, const std::string& path, const Json& around)
    {
        if (!shape.is_group())
            return check_member(json, shape, path, around);
        if (json.is_object() && !shape.is_array())
            return check_group(json, shape, path);
        if (json.is_array() && shape.is_array())
            return check_array(json, shape, path);
        return check_misfit(json, shape, path);
    }

    Json check_group(const Json& group, const Shape& shape, const std::string& path)
    {
        Json::object harmless;
        for (const auto& [name, json] : group.object_items()) {
            const auto member = shape.members.find(name);
            if (member == shape.members.end())
                say_unknown(joined(path, name), name);
            else if (auto kept = look_at(json, member->second, joined(path, name), group))
                harmless[name] = std::move(*kept);
            if (m_findings.has_more())
                break;
        }
        return harmless;
    }

    Json check_array(const Json& array, const Shape& shape, const std::string& path)
    {
        Json::array harmless;
        for (const Json& json : array.array_items()) {
            const std::string place = std::to_string(harmless.size());
            const auto element = shape.members.find(place);
            if (element == shape.members.end()) {
                say(joined(path, place), "would be ignored: only " + place + " elements are read");
                break;
            }
            harmless.push_back(
                look_at(json, element->second, joined(path, place), array).value_or(Json::object()));
        }
        return harmless;
    }

    // Something else stands where a group belongs. A null in an array only keeps the place of an element.
    std::optional<Json> check_misfit(const Json& json, const Shape& shape, const std::string& path)
    {
        const std::string wanted = shape.is_array() ? "no array" : "no object";
        const auto effect = effect_of(m_driver, document_with(path, json).dump());
        if (!effect) {
            say(path, wanted + ", and would end the run abnormally");
            return std::nullopt;
        }
        m_keys.insert(effect->keys.begin(), effect->keys.end());
        const auto& settings = effect->settings.all();
        if (!settings.empty())
            say(path,
                wanted + ", and would set " + in_quotes(settings.begin()->first) + " to " +
                    in_quotes(settings.begin()->second.value) +
                    (settings.size() > 1 ? " and " + std::to_string(settings.size() - 1) + " more" : ""));
        else if (!json.is_null())
            say(path, wanted + ", and would be ignored");
        else if (!is_place(path.substr(path.rfind('.') + 1)))
            say(path, "null would be ignored, and leave the settings as they are");
        return json;
    }

    std::optional<Json> check_member(
        const Json& json, const Shape& shape, const std::string& path, const Json& around)
    {
        if (!shape.parts.empty())
            for (const auto& [name, part] : json.object_items())
                if (std::find(shape.parts.begin(), shape.parts.end(), name) == shape.parts.end())
                    say_unknown(joined(path, name), name);
        try {
            m_members.push_back({path, &shape, json,
                codings::read(shape.member.face->coding, {&around, &json}, shape.member.face->null_text)});
        } catch (...) {
            say(path, "no object, and would end the run abnormally");
            return std::nullopt;
        }
        return json;
    }

    void check_effect(const Member& member, const DocumentEffect& effect)
    {
        const Face& face = *member.shape->member.face;
        const std::string& key = member.shape->key;
        const std::string stored = effect.value(key);
        m_keys.insert(key);
        if (!member.shape->is_read())
            check_unread(member);
        else if (key.empty())
            check_keyless(member);
        else if (effect.keys.count(key) == 0)
            check_unset(member);
        else if (key == "driver" && stored != m_driver)
            check_driver(member, stored);
        else if (member.shape->member.row->marks.status && !stored.empty())
            say(member.path,
                "is status, and would be stored as " + in_quotes(stored) + " under " + in_quotes(key));
        else if (member.value.is_null() &&
                 ((member.text && *member.text != stored) || !is_default(stored, member.shape->member)))
            say(member.path, "null would be stored as " + in_quotes(stored));
        else if (const std::string change = change_of(member.value, face, stored); !change.empty())
            say(member.path, shown(member.value) + " " + change);
        else if (counts_as_off(key, stored))
            say(member.path, shown(member.value) + " is no number, and counts as 0");
    }

    void check_unread(const Member& member)
    {
        if (!holds_nothing(member.value))
            say_unknown(member.path, member.path.substr(member.path.rfind('.') + 1));
    }

    void check_keyless(const Member& member)
    {
        const Face& face = *member.shape->member.face;
        const auto usual = codings::written(face.coding, {}, face.null_text);
        if (!holds_nothing(member.value) && member.value != usual.value_or(nullptr))
            say(member.path, shown(member.value) + " would be ignored: no document sets this");
    }

    void check_unset(const Member& member)
    {
        if (member.value.is_null())
            say(member.path, "null would be ignored, and leave the setting as it is");
        else if (!holds_nothing(member.value))
            say(member.path, "would be ignored: what it needs beside it is missing");
    }

    // What an input is started with stands in its first line.
    void check_driver(const Member& member, const std::string& stored)
    {
        if (!stored.empty())
            say(member.path, shown(member.value) + " would be stored, and is not the document's driver");
        else if (m_kind != ItemKind::INPUT)
            say(member.path, shown(member.value) + " would leave the item without a driver");
    }

    // What is stored although the document doesn't have it, as an object beside it is all that it needs.
    void check_unnamed(const DocumentEffect& effect)
    {
        for (const KnownName& known : m_names)
            if (effect.keys.contains(known.name) && m_keys.insert(known.name).second)
                say(known.place,
                    "is missing, and " + in_quotes(effect.value(known.name)) + " would be stored");
    }

    void say(const std::string& path, std::string text) { m_findings.add_of_member(path, std::move(text)); }

    void say_unknown(const std::string& path, const std::string& name)
    {
        say(path, "would be ignored" + suggestion(name, path, m_names));
    }

    ItemKind m_kind;
    std::string m_driver;
    const Shape& m_shape;
    const std::vector<KnownName>& m_names;
    Findings& m_findings;
    std::vector<Member> m_members;
    std::set<std::string, std::less<>> m_keys;  // whose members have been looked at
};

}  // namespace

void check_document(const std::string& driver, const std::string& text, Findings& findings)
{
    const Schema* schema = find_schema(driver);
    if (!schema) {
        findings.add({"the driver word " + in_quotes(driver) + " has no document, read as a channel's" +
                      suggestion(driver, {}, driver_words())});
        schema = find_schema("channel");
    }
    const auto document = json_of(text, findings);
    if (document && !document->is_object())
        findings.add({"no object, and would set nothing"});
    else if (document)
        DocumentCheck(*schema, findings).check(*document, text);
}
