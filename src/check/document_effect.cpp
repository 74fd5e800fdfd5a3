#include "check/document_effect.hpp"

#include "schema/create_consumer.hpp"
#include "settings/settings_file.hpp"

std::string DocumentEffect::value(const std::string& key) const
{
    const StoredSetting* const setting = settings.find(key.substr(0, key.find('=')));
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
    effect.settings.read_several_lines();
    for (const auto& [key, value] : consumer->items()) {
        if (is_stored(key))
            effect.keys.insert(key);
        effect.settings.store(key, value);
    }
    return effect;
}
