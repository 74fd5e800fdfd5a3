// What a "set" of a document stores.
#pragma once

#include <optional>
#include <set>
#include <string>

#include "zelmctl/check/stored_settings.hpp"

struct DocumentEffect {
    std::set<std::string, std::less<>> keys;  // that are set, to nothing too
    StoredSettings settings;                  // what they are read back as

    // The value that is stored under the key, empty if nothing is.
    std::string value(const std::string& key) const;
};

// None if the document ends the run.
std::optional<DocumentEffect> effect_of(const std::string& driver, const std::string& text);
