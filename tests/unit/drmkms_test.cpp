#include "schema/consume/consume_drmkms.hpp"
#include "schema/emit/emit_drmkms.hpp"

#include <gtest/gtest.h>

#include "unit/schema_testing.hpp"

using json11::Json;

namespace {

TEST(Drmkms, AnEmptySettingsFileGivesTheWholeDocument)
{
    EXPECT_EQ(emitted<EmitDrmkms>({}), parsed(R"({
        "driver": "drmkms", "name": "", "source": [""],
        "behavior": {"autostart": false, "restart": false, "autostartSource": false},
        "kms": {"active": "", "audio": "", "restoreOnDisconnect": false, "backlight": null,
            "refreshRate": null, "useEDID": false, "pixelFormat": "",
            "connector": {"card": {"select": "", "using": ""}, "type": "", "index": null,
                "skipUnconnected": false},
            "master": {"enable": false, "using": false}, "fbconOverride": {"enable": false, "using": false},
            "x11Override": false, "pageFlipping": {"enable": false, "using": false}},
        "video": {"forceSize": {"width": null, "height": null}, "interlaced": false, "scaleMode": null},
        "debug": {"lastError": "", "lastNotes": ""}})"));
}

// Every flat key, in the reader's order, with the place of its member and another value than an unset key.
const struct {
    const char* key;
    const char* text;
    const char* member;
    const char* json;
    const char* of_null;
} MEMBERS[] = {
    {"item", "/mnt/one", "source", R"(["", "mnt", "one"])", ""},
    {"autostart", "1", "behavior.autostart", "true", "0"},
    {"autorestart", "1", "behavior.restart", "true", "0"},
    {"autostart item", "1", "behavior.autostartSource", "true", "0"},
    {"active", "1", "kms.active", R"("1")", ""},
    {"audio", "off", "kms.audio", R"("off")", "on"},
    {"restore on item disconnect", "1", "kms.restoreOnDisconnect", "true", "0"},
    {"backlight level", "7", "kms.backlight", "7", ""},
    {"refresh rate", "59.94", "kms.refreshRate", "59.94", ""},
    {"match known", "1", "kms.useEDID", "true", "1"},
    {"output format", "bgr565", "kms.pixelFormat", R"("bgr565")", "rgb888"},
    {"device", "2", "kms.connector.card.select", "2", "0"},
    {"using device", "/dev/dri/card0", "kms.connector.card.using", R"("/dev/dri/card0")", ""},
    {"connector", "vga", "kms.connector.type", R"("vga")", "hdmi"},
    {"connector index", "1", "kms.connector.index", "1", ""},
    {"skip unconnected", "1", "kms.connector.skipUnconnected", "true", "1"},
    {"drm master", "1", "kms.master.enable", "true", "0"},
    {"using drm as master", "1", "kms.master.using", "true", "0"},
    {"fbcon override", "1", "kms.fbconOverride.enable", "true", "0"},
    {"using fbcon", "1", "kms.fbconOverride.using", "true", "0"},
    {"x override", "1", "kms.x11Override", "true", "1"},
    {"use page flipping", "1", "kms.pageFlipping.enable", "true", "1"},
    {"using page flipping", "1", "kms.pageFlipping.using", "true", "0"},
    {"force width", "1280", "video.forceSize.width", "1280", ""},
    {"force height", "720", "video.forceSize.height", "720", ""},
    {"interlaced", "1", "video.interlaced", "true", "0"},
    {"scale mode", "center", "video.scaleMode", R"("center")", ""},
    {"last error", "no card", "debug.lastError", R"("no card")", ""},
    {"last notes", "opened", "debug.lastNotes", R"("opened")", ""},
};

TEST(Drmkms, EveryKeyGoesBothWays)
{
    const Json unset = emitted<EmitDrmkms>({});
    for (const auto& row : MEMBERS) {
        const Pairs setting = {{row.key, row.text}};
        const Json value = parsed(row.json);
        EXPECT_EQ(emitted<EmitDrmkms>(setting), Json(EmitJson::set(unset.object_items(), row.member, value)));
        EXPECT_EQ(consumed<ConsumeDrmkms>(Json(EmitJson::set({}, row.member, value)).dump()), setting);
    }
}

TEST(Drmkms, NullsRestoreDefaultsOrEmptyTheirKeysInOrder)
{
    Document nulls = {{"driver", nullptr}, {"name", nullptr}};
    Pairs expected = {{"", "drmkms"}, {"", ""}};
    for (const auto& row : MEMBERS) {
        nulls = EmitJson::set(nulls, row.member, nullptr);
        expected.emplace_back(row.key, row.of_null);
    }
    EXPECT_EQ(expected.size(), 31U);
    EXPECT_EQ(consumed<ConsumeDrmkms>(Json(nulls).dump()), expected);
}

TEST(Drmkms, ADeviceIsANumberOrAText)
{
    const struct {
        const char* device;
        const char* select;
        const char* after;
    } cases[] = {
        {"1", "1", "1"},
        {"", R"("")", ""},
        {"pci:0000:01:00.0", R"("pci:0000:01:00.0")", "pci:0000:01:00.0"},
        {"0000:01:00.0", "0", "0"},
        {"3000000000", R"("3000000000")", "3000000000"},
    };
    for (const auto& row : cases) {
        const Json document = emitted<EmitDrmkms>({{"device", row.device}});
        EXPECT_EQ(document["kms"]["connector"]["card"]["select"], parsed(row.select));
        const Json select = EmitJson::set({}, "kms.connector.card.select", parsed(row.select));
        EXPECT_EQ(consumed<ConsumeDrmkms>(select.dump()), (Pairs{{"device", row.after}}));
    }
}

TEST(Drmkms, ValuesOfAnotherTypeAreReadAsFarAsTheyGo)
{
    const struct {
        const char* document;
        Pairs pairs;
    } cases[] = {
        {"{}", {}},
        {R"({"kms": {"connector": {}}, "video": null})", {}},
        {R"({"driver": "anything", "name": "One"})", {{"", "drmkms"}, {"", "One"}}},
        {R"({"kms": {"backlight": "dim", "refreshRate": "fast", "useEDID": 1}})",
            {{"backlight level", "dim"}, {"refresh rate", "fast"}, {"match known", "0"}}},
        {R"({"kms": {"backlight": 2.9, "audio": false, "connector": {"index": true}}})",
            {{"audio", "false"}, {"backlight level", "2"}, {"connector index", "0"}}},
        {R"({"kms": {"connector": {"card": {"select": 2.5}}}})", {{"device", "2.5"}}},
        {R"({"video": {"scaleMode": 1, "forceSize": {"width": 1e3}}})",
            {{"force width", "1000"}, {"scale mode", "1"}}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(consumed<ConsumeDrmkms>(row.document), row.pairs) << row.document;
    EXPECT_EQ(emitted<EmitDrmkms>({{"backlight level", "dim"}, {"refresh rate", "fast"},
                  {"connector index", "x"}, {"match known", "true"}}),
        emitted<EmitDrmkms>({{"backlight level", "0"}, {"refresh rate", "0"}, {"connector index", "0"}}));
}

}  // namespace
