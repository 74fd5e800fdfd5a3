// The manifests of the simulated appliance, as they are built.
#include <filesystem>
#include <gtest/gtest.h>
#include <set>

#include "platform/mediaitem.hpp"
#include "unit/schema_rows.hpp"

namespace {

using Strings = std::set<std::string>;

zelm_config_list manifest_of(const std::string& program)
{
    zelm_config_list manifest;
    manifest.with_texts = 1;
    EXPECT_EQ(manifest.load_arglist((std::string(MANIFESTS) + "/" + program + ".al").c_str()), 0) << program;
    EXPECT_TRUE(manifest.begin() != manifest.end()) << program;
    return manifest;
}

// What the driver's own document, handed back, would set.
Strings keys_of_document(const std::string& driver)
{
    Strings keys;
    for (const auto& [key, value] : consumed(driver, emitted(driver, {}).dump()))
        keys.insert(key);
    return keys;
}

const Strings PROGRAMS = {"zelm_blackmagic_videohub", "zelm_knox_rs16x16hb", "zelm_knox_rs8x8hb",
    "zelm_knox_rsii", "zelm_out_alsa", "zelm_out_blackmagic_decklink_sdi", "zelm_out_drmkms",
    "zelm_out_fbdev", "zelm_out_oss", "zelm_out_pulseaudio", "zelm_out_schedule_push", "zelm_out_shoutcast",
    "zelm_out_x11", "zelm_rendermgr", "zelm_sierra_video_aspen_hdsdi", "zelm_trigger_rs232",
    "zelm_video_passthru", "zelm_video_passthru_v2"};

TEST(ApplianceManifests, EveryDriverHasOneAndEveryOneLoadsWithItsTexts)
{
    Strings found;
    for (const auto& file : std::filesystem::directory_iterator(MANIFESTS))
        found.insert(file.path().stem());
    EXPECT_EQ(found, PROGRAMS);
    const Strings types = {"array", "boolean", "integer", "number", "object", "string"};
    for (const std::string& program : PROGRAMS) {
        for (const auto& [key, entry] : manifest_of(program)) {
            const std::string what = std::string(program).append(": ").append(key);
            EXPECT_NE(entry.description, "") << what;
            EXPECT_EQ(types.count(parsed(entry.ui)["json_type"].string_value()), 1U) << what;
            EXPECT_EQ(entry.letter != 0, entry.s_flag) << what << " is a status key or none";
            EXPECT_EQ(entry.quick_summary, !entry.s_flag) << what;
        }
    }
}

TEST(ApplianceManifests, TellOfEveryKeyThatTheDriversDocumentSets)
{
    for (const std::string& program : PROGRAMS) {
        const zelm_config_list manifest = manifest_of(program);
        Strings told = {"", "driver"};
        for (const auto& [key, entry] : manifest)
            told.insert(key);
        const std::string prefix = program.starts_with("zelm_out_") ? "zelm_out_" : "zelm_";
        Strings untold;
        for (const std::string& key : keys_of_document(program.substr(prefix.size())))
            if (told.count(key) == 0)
                untold.insert(key);
        EXPECT_EQ(untold, Strings()) << program;
    }
}

}  // namespace
