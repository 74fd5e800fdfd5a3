#include "schema/consume/consume_x11.hpp"
#include "schema/emit/emit_x11.hpp"

#include <gtest/gtest.h>

#include "unit/schema_testing.hpp"

namespace {

TEST(X11, AnEmptySettingsFileGivesTheWholeDocument)
{
    EXPECT_EQ(emitted<EmitX11>({}), parsed(R"({
        "driver": "x11", "name": "", "source": [""],
        "behavior": {"autostart": false, "restart": false, "autostartSource": false},
        "x11": {"title": "", "keepAbove": false, "modeset": false, "resize": false, "active": false,
            "window": 0, "server": "", "xv": {"enable": false, "using": false},
            "shm": {"enable": false, "using": false},
            "fullscreen": {"enable": false, "using": false, "position": {"x": 0, "y": 0}}},
        "video": {"stretch": false, "rate": 0},
        "debug": {"lastError": "", "lastNotes": ""}})"));
}

const Pairs FULL_SETTINGS = {
    {"item", "/mnt/main/tv/rendermgr/channel1"},
    {"autostart", "1"},
    {"autorestart", "1"},
    {"autostart item", "1"},
    {"title", "One"},
    {"always on top", "1"},
    {"modechange", "1"},
    {"always resize window", "1"},
    {"active", "1"},
    {"xwindow", "4194307"},
    {"using x11 server", ":0"},
    {"disable xv", "1"},
    {"using xv", "1"},
    {"disable shm", "1"},
    {"using shm", "1"},
    {"fullscreen", "1"},
    {"using fullscreen", "1"},
    {"fullscreen x", "10"},
    {"fullscreen y", "-20"},
    {"disable stretching", "1"},
    {"frame rate reduce", "15"},
    {"last error", "no display"},
    {"last notes", "opened"},
};

constexpr char FULL_DOCUMENT[] = R"({
    "driver": "x11", "name": "", "source": ["", "mnt", "main", "tv", "rendermgr", "channel1"],
    "behavior": {"autostart": true, "restart": true, "autostartSource": true},
    "x11": {"title": "One", "keepAbove": true, "modeset": true, "resize": true, "active": true,
        "window": 4194307, "server": ":0", "xv": {"enable": true, "using": true},
        "shm": {"enable": true, "using": true},
        "fullscreen": {"enable": true, "using": true, "position": {"x": 10, "y": -20}}},
    "video": {"stretch": true, "rate": 15},
    "debug": {"lastError": "no display", "lastNotes": "opened"}})";

TEST(X11, EveryFlatKeyReachesItsMember)
{
    EXPECT_EQ(emitted<EmitX11>(FULL_SETTINGS), parsed(FULL_DOCUMENT));
}

TEST(X11, AFullDocumentGivesEveryPairInOrder)
{
    Pairs expected = FULL_SETTINGS;
    expected.insert(expected.begin(), {{"", "x11"}, {"", ""}});
    EXPECT_EQ(consumed<ConsumeX11>(FULL_DOCUMENT), expected);
}

TEST(X11, PartialDocumentsChangeOnlyWhatTheyName)
{
    const struct {
        const char* document;
        Pairs pairs;
    } cases[] = {
        {"{}", {}},
        {"not JSON", {}},
        {"[1]", {}},
        {R"({"x11": {}})", {}},
        {R"({"x11": {"fullscreen": {"position": {"x": 10}}}})", {{"fullscreen x", "10"}}},
        {R"({"driver": "alsa"})", {{"", "x11"}}},
        {R"({"name": "One"})", {{"", "One"}}},
        {R"({"name": null})", {{"", ""}}},
        {R"({"x11": {"title": null}})", {{"title", "Tavorn 4 X11/XVideo output"}}},
        {R"({"x11": {"xv": {"enable": null}, "shm": {"enable": null}}})",
            {{"disable xv", "1"}, {"disable shm", "1"}}},
        {R"({"x11": {"xv": {"enable": true}, "shm": {"enable": false}}})",
            {{"disable xv", "1"}, {"disable shm", "0"}}},
        {R"({"video": {"rate": null, "stretch": null}})",
            {{"disable stretching", "1"}, {"frame rate reduce", "0"}}},
        {R"({"behavior": {"autostart": 1, "restart": "1", "autostartSource": null}})",
            {{"autostart", "0"}, {"autorestart", "0"}, {"autostart item", "0"}}},
        {R"({"x11": {"window": null, "server": null, "active": null}})",
            {{"active", "0"}, {"xwindow", "0"}, {"using x11 server", ""}}},
        {R"({"source": null})", {{"item", ""}}},
        {R"({"source": ["a", 1, "b"]})", {{"item", "a//b"}}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(consumed<ConsumeX11>(row.document), row.pairs) << row.document;
}

}  // namespace
