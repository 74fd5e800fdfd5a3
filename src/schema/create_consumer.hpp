// Which schema reads a document.
#pragma once

#include <memory>
#include <string>

#include "schema/consume_json.hpp"

// A new consumer of the JSON text for the driver, by exact comparison. The empty word and every word that
// is not known get the channel's.
std::shared_ptr<JsonConsumer> createConsumer(const std::string& driver, const std::string& text);
