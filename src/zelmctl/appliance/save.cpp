#include "zelmctl/appliance/save.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "schema/json_schema/json_lines.hpp"
#include "zelmctl/appliance/saved_document.hpp"
#include "zelmctl/appliance/stored_item.hpp"
#include "zelmctl/check/known_settings.hpp"
#include "zelmctl/found_items.hpp"

using json11::Json;

namespace {

constexpr char SAVE_HELP[] = R"(usage: zelmctl save [--documents] [ITEM...]

Prints what the items have stored as one file, which "apply" takes: their settings, and the types of inputs. ITEM is
like output/main, a kind alone for all of it, or all, which is meant without one.

  --documents  as documents, as far as those can say it

What gives access, such as passwords, is part of it. Exit status: 0, 1 when one that is named isn't there, 2 trouble.
)";

// Moves what the document of the item's driver can say out of the settings.
void put_document(Json::object& saved, const ItemId& id, StoredItem& item)
{
    const Schema* const schema = find_schema(driver_of(id, item), id.role->kind);
    if (!schema)
        return;
    if (id.role->driver_source == DriverSource::DRIVER_LINE) {
        saved["driver"] = std::string(schema->driver);
        item.settings.erase("driver");
    }
    if (Json document = take_document(*schema, item.settings); !document.is_null())
        saved["document"] = std::move(document);
}

Json saved_item(const ItemId& id, StoredItem item, bool as_document)
{
    Json::object saved;
    if (item.type)
        saved["type"] = item.type->marker;
    if (as_document)
        put_document(saved, id, item);
    Json::object settings;
    for (const auto& [key, value] : item.settings)
        settings.emplace_hint(settings.end(), key, lines_of(value));
    if (!settings.empty())
        saved["settings"] = std::move(settings);
    return saved;
}

bool has_secrets(const StoredItem& item)
{
    return std::any_of(item.settings.begin(), item.settings.end(),
        [](const auto& setting) { return is_secret(setting.first); });
}

// Begins a member of the object that the text is in. Items come one by one: a tree of all of them would take
// several times the memory.
void begin_member(std::string& text, const std::string& margin, const Json& name)
{
    text += text.back() == '{' ? "\n" : ",\n";
    text += margin;
    name.dump(text);
    text += ": ";
}

void end_object(std::string& text, const std::string& margin)
{
    text += text.back() == '{' ? "}" : "\n" + margin + "}";
}

class Saving {
public:
    explicit Saving(const Options& options) : m_options(options), m_found(find_items(options.items)) {}

    Status run()
    {
        Status status = std::max(m_found.status, complain_of_missing(m_options.items, m_found.items));
        std::string text = "{";
        for (const Role& role : ROLES)
            if (m_options.items.has_any(role))
                status = std::max(status, add_kind(text, role));
        end_object(text, "");
        if (m_has_secrets)
            complain("what gives access is in it, such as passwords");
        std::puts(text.c_str());
        return status;
    }

private:
    Status add_kind(std::string& text, const Role& role)
    {
        Status status = IS_SO;
        begin_member(text, "  ", plural(role));
        text += '{';
        for (const ItemId& id : m_found.items)
            if (id.role == &role)
                status = std::max(status, add_item(text, id));
        end_object(text, "  ");
        return status;
    }

    Status add_item(std::string& text, const ItemId& id)
    {
        auto item = read_stored_item(id);
        if (!item)
            return complain_of(id, std::strerror(errno));
        m_has_secrets |= has_secrets(*item);
        begin_member(text, "    ", id.name);
        text += indented(saved_item(id, std::move(*item), m_options.documents), "    ");
        return IS_SO;
    }

    const Options& m_options;
    FoundItems m_found;
    bool m_has_secrets = false;
};

Status save(const Options& options)
{
    return Saving(options).run();
}

}  // namespace

const Subcommand SAVE{"save", "--documents", Items::ALL_UNLESS_NAMED, SAVE_HELP, save};
