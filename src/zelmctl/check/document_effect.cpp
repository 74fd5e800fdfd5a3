#include "zelmctl/check/document_effect.hpp"

#include "platform/io.hpp"
#include "schema/composite_text.hpp"
#include "schema/create_consumer.hpp"
#include "schema/schemas.hpp"
#include "settings/settings_file.hpp"

namespace {

// Takes in what a "set" of the pair writes.
void store(StoredSettings& settings, SettingsReader& reader, const std::string& key, const std::string& value)
{
    if (!is_stored(key) || value.empty())
        return;
    for (const std::string& text : split(value, "\n")) {
        std::string written = key;
        written.append("=").append(text);
        std::string_view left = written;
        while (!left.empty())
            if (const SettingsLine line = reader.read(cut_line(left)); line.kind == SettingsLineKind::SETTING)
                settings.take(line, 0);
    }
}

}  // namespace

std::string DocumentEffect::value(const std::string& key) const
{
    const StoredSetting* const setting = settings.find(key_in_file(key));
    return setting ? setting->value : "";
}

std::optional<DocumentEffect> effect_of(const std::string& driver, const std::string& text)
{
    const auto consumer = createConsumer(driver, text);
    try {
        consumer->createItems();
    } catch (...) {
        return std::nullopt;
    }
    DocumentEffect effect;
    SettingsReader reader;
    reader.read("#multiline");
    for (const auto& [key, value] : consumer->items()) {
        if (is_stored(key))
            effect.keys.insert(key);
        store(effect.settings, reader, key, value);
    }
    return effect;
}
