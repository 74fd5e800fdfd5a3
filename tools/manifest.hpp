// The manifest of a driver, made of its document's table. zelm-manifest(5) tells the format.
#pragma once

#include "platform/mediaitem.hpp"
#include "schema/schemas.hpp"

#include <string>
#include <vector>

// The manifest's text. `beside` has what no document tells of; of a key that several have, the table counts,
// and then the first.
std::string manifest_of(const Schema& schema, const std::vector<zelm_config_list>& beside);
