// Which schema writes the document of an item.
#pragma once

#include <memory>
#include <string>

#include "schema/emit_json.hpp"

// A new emitter for the driver, by exact comparison. A channel, which has no driver word, and every word
// that is not known get the channel's.
std::shared_ptr<EmitJson> createEmitter(const std::string& driver);
