// What a "set" of a JSON document passes over in silence.
#pragma once

#include <string>

#include "zelmctl/check/findings.hpp"

// `driver` is a driver word; "channel" and the empty word mean a channel's document. Any other word that has
// no document is found, and read as a channel's, as the tools do.
void check_document(const std::string& driver, const std::string& text, Findings& findings);
