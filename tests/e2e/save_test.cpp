// What zelmctl save and zelmctl explain tell, beside what the page shows.
#include "e2e/sandbox_testing.hpp"

namespace {

class SavedAppliance : public Appliance {};

TEST_F(SavedAppliance, IsTheSameToTheByteWhenItIsAppliedElsewhereAndSaved)
{
    EXPECT_EQ(output_of("/usr/bin/python3 -B " TESTS "/e2e/saved_appliances.py ${ZELMCTL_LONG:-100}"), "");
}

TEST_F(SavedAppliance, HasTheOthersWhereANamedItemIsMissing)
{
    write_file(OUTPUTS + "main", "driver=newtek_ndi\nenc0, ts, rtmp push key=\n");
    write_file(INPUTS + "studio", "#!teapot\ntitle=One\r\n");
    expect_all({{"zelmctl save output/main output/gone input", 1,
        R"({
  "outputs": {
    "main": {
      "settings": {
        "driver": "newtek_ndi",
        "enc0, ts, rtmp push key": ""
      }
    }
  },
  "inputs": {
    "studio": {
      "settings": {
        "title": "One\r"
      }
    }
  }
}
)",
        "zelmctl: output/gone: no such item\nzelmctl: what gives access is in it, such as passwords\n"}});
}

TEST_F(SavedAppliance, SaysAsMembersWhatADocumentStoresJustSo)
{
    write_file(OUTPUTS + "main",
        "driver=x11\ntitle=\nfullscreen=1\nalways on top=yes\nusing xv=1\nframe rate reduce=025\n");
    write_file(CHANNELS + "channel1",
        "global item 3 loop=1\nurgent video enabled=1\nvideo aspect ratio=16:9\n"
        "eia-608 to cea-708 conversion=-1\nrealtime process=0\n");
    EXPECT_EQ(output_of("zelmctl save --documents output channel | python3 -m json.tool --compact"),
        R"({"channels":{"channel1":{"document":{"behavior":{"realtime":false},"caption":{"conversion":{"enable":true,)"
        R"("force":false}},"regions":{"global":[{},{},{"media":{"loop":true}}]},"video":{"aspect":{"height":9,"width":16}}},)"
        R"("settings":{"urgent video enabled":"1"}}},"outputs":{"main":{"document":{"x11":{"fullscreen":{"enable":true}}},)"
        R"("driver":"x11","settings":{"always on top":"yes","frame rate reduce":"025","title":"","using xv":"1"}}}})"
        "\n");
}

TEST_F(SavedAppliance, ExplainsAnItemByItsOwnDriver)
{
    write_file(INPUTS + "studio", "#!trigger-rs232\n");
    write_file(ROUTERS + "matrix", "driver=knox_rsi\n");
    expect_all({
        {"zelmctl explain input/studio prot", 2, "",
            "zelmctl: the driver trigger_rs232 has no \"prot\"; did you mean \"port\"?\n"},
        {"zelmctl explain router/matrix", 2, "",
            "zelmctl: the driver \"knox_rsi\" has no document; did you mean \"knox_rsii\"?\n"},
        {"zelmctl explain router/gone", 2, "", "zelmctl: router/gone: no such item\n"},
        {"zelmctl explain channel enable all", 2, "", "zelmctl: explain: unknown word all\n"},
        {"zelmctl explain blackmagic_videohub driver | grep set", 0,
            "set      a running item has to be restarted\n"},
        {"zelmctl explain channel regions.global.7.media.path | grep key", 0, "key      global item 8\n"},
    });
}

}  // namespace
