#include "zelmctl/check/document_shape.hpp"

#include "schema/codings.hpp"

namespace {

std::vector<std::string> parts_of(Coding coding)
{
    std::vector<std::string> parts;
    for (const codings::Part& part : codings::parts(coding))
        parts.emplace_back(part.name);
    return parts;
}

void add_names(std::vector<KnownName>& names, const Shape& shape, const std::string& path)
{
    for (const auto& [name, member] : shape.members) {
        const std::string inner = joined(path, name);
        const bool can_be_set = member.is_group() || member.is_read();
        if (can_be_set && !is_place(name))
            names.push_back({name, inner});
        if (member.is_read() && !member.key.empty())
            names.push_back({member.key, inner});
        for (const std::string& part : member.parts)
            names.push_back({part, joined(inner, part)});
        add_names(names, member, inner);
    }
}

Shape shape_of(const Schema& schema)
{
    Shape top;
    for_each_member(
        schema.rows, [&](const std::string& path, const std::string& key, const MemberFace& member) {
            Shape* at = &top;
            for (const std::string& name : split(path, "."))
                at = &at->members[name];
            if (at->is_read())
                return;
            at->member = member;
            at->key = key;
            at->parts = parts_of(member.face->coding);
        });
    return top;
}

}  // namespace

bool is_place(const std::string& name)
{
    return name.find_first_not_of("0123456789") == std::string::npos;
}

std::string joined(const std::string& path, const std::string& name)
{
    return (path.empty() ? path : path + ".") + (name.empty() ? "\"\"" : name);
}

const KnownDocument& known_document(const Schema& schema)
{
    static std::map<const Schema*, KnownDocument> known;
    const auto [entry, is_new] = known.try_emplace(&schema);
    KnownDocument& document = entry->second;
    if (is_new) {
        document.shape = shape_of(schema);
        add_names(document.names, document.shape, {});
    }
    return document;
}
