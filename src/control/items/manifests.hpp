// The manifests of a listing, each of which is read once.
#pragma once

#include <map>
#include <string>

#include "platform/mediaitem.hpp"

class Manifests {
public:
    // The manifest at the path, with its texts; empty if it can't be read. It stays where it is.
    const zelm_config_list& at(const std::string& path);

private:
    std::map<std::string, zelm_config_list> m_read;
};
