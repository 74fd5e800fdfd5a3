#include "control/items/manifests.hpp"

const zelm_config_list& Manifests::at(const std::string& path)
{
    const auto [entry, is_new] = m_read.try_emplace(path);
    zelm_config_list& manifest = entry->second;
    if (is_new) {
        manifest.with_texts = 1;
        manifest.load_arglist(path.c_str());
    }
    return manifest;
}
