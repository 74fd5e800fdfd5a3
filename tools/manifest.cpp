#include "tools/manifest.hpp"

#include <map>

#include "schema/codings.hpp"

namespace {

using Entries = std::map<std::string, zelm_config_entry>;

// "boolean" of {"type": ["boolean", "null"]}.
std::string json_type(Coding coding)
{
    if (!codings::parts(coding).empty())
        return "object";
    const json11::Json type = codings::json_schema(coding)["type"];
    return type.is_array() ? type[0].string_value() : type.string_value();
}

void mark_as_status(zelm_config_entry& entry)
{
    entry.letter = '*';
    entry.s_flag = true;
    entry.quick_summary = false;
    entry.default_value.clear();
}

zelm_config_entry entry_of(const MemberFace& member)
{
    const Row& row = *member.row;
    zelm_config_entry entry;
    entry.description = row.description;
    entry.ui = R"({"json_type": ")" + json_type(member.face->coding) + "\"}";
    entry.default_value = member.usual();
    entry.nogui_flag = row.marks.nogui;
    if (row.marks.status)
        mark_as_status(entry);
    return entry;
}

// Of a key that several members have, the first that can be set tells, and all of it is a status if one is.
void add_member(Entries& entries, const std::string& key, const MemberFace& member)
{
    const Row& row = *member.row;
    if (key.empty() || row.description.empty())
        return;
    const auto [at, is_new] = entries.try_emplace(key, entry_of(member));
    if (!is_new && row.marks.status)
        mark_as_status(at->second);
}

void add_rows(Entries& entries, const Schema& schema, bool written_alone)
{
    for_each_member(schema.rows, [&](const std::string&, const std::string& key, const MemberFace& member) {
        if (member.is_read() != written_alone)
            add_member(entries, key, member);
    });
}

void append(std::string& text, const char* member, const std::string& lines)
{
    if (lines.empty())
        return;
    for (const std::string& line : split(lines, "\n"))
        text.append(member).append("=").append(line).append("\n");
}

std::string flags_of(const zelm_config_entry& entry)
{
    std::string flags = entry.s_flag ? " s" : "";
    flags += entry.quick_summary ? "" : " detail";
    flags += entry.nogui_flag ? " nogui" : "";
    return flags.empty() ? flags : flags.substr(1);
}

}  // namespace

std::string manifest_of(const Schema& schema, const std::vector<zelm_config_list>& beside)
{
    Entries entries;
    add_rows(entries, schema, false);
    add_rows(entries, schema, true);
    for (const zelm_config_list& piece : beside)
        entries.insert(piece.begin(), piece.end());
    std::string text;
    for (const auto& [key, entry] : entries) {
        text.append("[").append(key).append("]\n");
        append(text, "default", entry.default_value);
        append(text, "letter", std::string(entry.letter != 0, entry.letter));
        append(text, "flags", flags_of(entry));
        append(text, "description", entry.description);
        append(text, "ui", entry.ui);
    }
    return text;
}
