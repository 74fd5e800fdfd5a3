#include "zelmctl/appliance/saved_document.hpp"

#include <algorithm>
#include <map>
#include <optional>

#include "schema/codings.hpp"
#include "zelmctl/check/check_document.hpp"
#include "zelmctl/check/document_effect.hpp"
#include "zelmctl/check/document_shape.hpp"

using json11::Json;

namespace {

// A member that can be set, with its key in the settings.
struct SetMember {
    std::string path;
    std::string key;
};

void add_set_members(std::vector<SetMember>& members, const Shape& shape, const std::string& path)
{
    for (const auto& [name, inner] : shape.members)
        add_set_members(members, inner, joined(path, name));
    if (shape.is_read() && !shape.key.empty() && !shape.member.row->marks.status)
        members.push_back({path, key_in_file(shape.key)});
}

class DocumentToSave {
public:
    DocumentToSave(const Schema& schema, const FlatSettings& settings)
        : m_driver(schema.driver), m_shape(known_document(schema).shape)
    {
        add_set_members(m_members, m_shape, {});
        for (const SetMember& member : m_members)
            if (const auto setting = settings.find(member.key); setting != settings.end())
                m_said.insert(*setting);
    }

    // Leaves out what turns out not to be said by the rest, until all of it is.
    Json document()
    {
        std::optional<Json> document;
        do {
            document = document_of(m_shape);
        } while (document && leave_out_what_changes(*document));
        return document.value_or(nullptr);
    }

    const FlatSettings& said() const { return m_said; }

private:
    std::optional<Json> document_of(const Shape& shape) const
    {
        if (shape.is_group())
            return shape.is_array() ? array_of(shape) : object_of(shape);
        const auto setting = m_said.find(key_in_file(shape.key));
        if (!shape.is_read() || shape.member.row->marks.status || setting == m_said.end())
            return {};
        try {
            const Face& face = *shape.member.face;
            return codings::written(face.coding, setting->second, face.null_text);
        } catch (...) {
            return {};
        }
    }

    std::optional<Json> object_of(const Shape& shape) const
    {
        Json::object object;
        for (const auto& [name, member] : shape.members)
            if (auto json = document_of(member))
                object[name] = std::move(*json);
        return object.empty() ? std::nullopt : std::optional<Json>(object);
    }

    // An element in front of another stands there, too.
    std::optional<Json> array_of(const Shape& shape) const
    {
        Json::array array;
        for (const auto& [name, element] : shape.members)
            if (auto json = document_of(element)) {
                const std::size_t place = std::stoul(name);
                array.resize(std::max(array.size(), place + 1), Json::object());
                array[place] = std::move(*json);
            }
        return array.empty() ? std::nullopt : std::optional<Json>(array);
    }

    bool leave_out_what_changes(const Json& document)
    {
        const std::string text = document.dump();
        const auto effect = effect_of(m_driver, text);
        if (std::erase_if(m_said, [&](const auto& setting) {
                return !effect || setting.second.empty() || effect->value(setting.first) != setting.second;
            }) > 0)
            return true;
        Findings findings;
        check_document(m_driver, text, findings);
        for (const Finding& finding : findings.all())
            leave_out_around(finding.member);
        return !findings.all().empty();
    }

    // What is said at the path, or else in the nearest object around it.
    void leave_out_around(std::string path)
    {
        while (!path.empty() && leave_out_below(path) == 0)
            path.resize(path.find('.') == path.npos ? 0 : path.rfind('.'));
        if (path.empty())
            m_said.clear();
    }

    std::size_t leave_out_below(const std::string& path)
    {
        std::size_t count = 0;
        for (const SetMember& member : m_members)
            if (member.path == path || member.path.starts_with(path + "."))
                count += m_said.erase(member.key);
        return count;
    }

    std::string m_driver;
    const Shape& m_shape;
    std::vector<SetMember> m_members;
    FlatSettings m_said;
};

}  // namespace

Json take_document(const Schema& schema, FlatSettings& settings)
{
    DocumentToSave saved(schema, settings);
    Json document = saved.document();
    for (const auto& [key, value] : saved.said())
        settings.erase(key);
    return document;
}
