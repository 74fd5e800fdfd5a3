#include "schema/consume/consume_shout_cast.hpp"
#include "schema/emit/emit_shout_cast.hpp"

#include <gtest/gtest.h>

#include "schema/create_consumer.hpp"
#include "schema/create_emitter.hpp"
#include "unit/encoder_testing.hpp"

using json11::Json;

namespace {

constexpr char ENCODER[] = R"(
    encoder; rate; channels; bitrate; min bitrate; max bitrate; quality=80; vbr quality=80; highpass;
    lowpass; mp2, channel mode; mp3, channel mode; enable=1; copyright=0; original=1; crc=0; debug file=0;
    mp3, strict iso=0; mp3, bit reservoir=1; aac, object type=low; name; ac3, dialog normalization=-31;
    active; last error; last notes)";

// The members of the encoders as they are written, and as they are read: with one underscore in the names
// of the codecs' own members.
Leaves emitted_leaves()
{
    Leaves leaves;
    for (const std::string base : {"0", "1", "2"})
        append(leaves, ENCODER, {"enc", base}, "enc" + base + ", ");
    return leaves;
}

Leaves consumed_leaves()
{
    Leaves leaves = emitted_leaves();
    for (Leaf& leaf : leaves) {
        std::string& name = leaf.path.back();
        if (const std::size_t at = name.find("__"); at != std::string::npos)
            name.erase(at, 1);
    }
    return leaves;
}

// The document with encoders that hold these values.
Json with_encoders(const Json& document, const Leaves& leaves, const Pairs& values)
{
    std::vector<Json::object> encoders(3);
    for (std::size_t i = 0; i < leaves.size(); ++i)
        encoders[std::stoul(leaves[i].path[1])][leaves[i].path[2]] = values[i].second;
    Json::object members = document.object_items();
    members["enc"] = encoders;
    return members;
}

Json without_encoders(const Json& document)
{
    Json::object members = document.object_items();
    members.erase("enc");
    return members;
}

// The pairs of the top level; those of the encoders follow the fourth.
Pairs joined(const char* top, const Pairs& encoders)
{
    Pairs pairs = pairs_of(top);
    pairs.insert(pairs.begin() + 4, encoders.begin(), encoders.end());
    return pairs;
}

constexpr char TOP_SETTINGS[] = R"(
    autostart=0; autorestart=1; driver=shoutcast; item=/mnt/main/tv/rendermgr/one; audio rate=44100;
    audio channels=2; audio volume=90; audio normalizer attack=2; audio normalizer decay=1000;
    audio normalizer minimum level=-20.5; audio normalizer lower level=-7.25;
    audio normalizer upper level=-2; audio normalizer upper level 2=-1.5;
    audio normalizer hard limit level=-1; audio normalizer hard limit level 2=-0.5;
    audio normalizer bass filter=40; audio normalizer treble filter=16000; audio normalizer sd-mode=1;
    audio normalizer enable=1; audio normalizer map mode=cubic; active=1; autostart item=1)";

constexpr char TOP_DOCUMENT[] = R"({
    "autostart": "0", "autorestart": true, "driver": "shoutcast", "item": "/mnt/main/tv/rendermgr/one",
    "audio_rate": "44100", "audio_channels": "2", "audio_volume": "90", "audio_normalizer_attack": 2,
    "audio_normalizer_decay": 1000, "audio_normalizer_minimum_level": -20.5,
    "audio_normalizer_lower_level": -7.25, "audio_normalizer_upper_level": -2,
    "audio_normalizer_upper_level_2": -1.5, "audio_normalizer_hard_limit_level": -1,
    "audio_normalizer_hard_limit_level_2": -0.5, "audio_normalizer_bass_filter": 40,
    "audio_normalizer_treble_filter": 16000, "audio_normalizer_sd_mode": true,
    "audio_normalizer_enable": true, "audio_normalizer_map_mode": "cubic", "active": true,
    "autostart_item": "1"})";

TEST(ShoutCast, EveryFlatKeyReachesItsMember)
{
    const Pairs encoders = told_apart(emitted_leaves());
    const Json document = emitted<EmitShoutCast>(joined(TOP_SETTINGS, encoders));
    EXPECT_EQ(without_encoders(document), parsed(TOP_DOCUMENT));
    expect_members(document, emitted_leaves(), encoders);
}

TEST(ShoutCast, AnEmptySettingsFileGivesTheWholeDocument)
{
    const Json document = createEmitter("shoutcast")->emitJson();
    EXPECT_EQ(without_encoders(document), parsed(R"({
        "autostart": null, "autorestart": false, "driver": "shoutcast", "item": null, "audio_rate": null,
        "audio_channels": "", "audio_volume": "", "audio_normalizer_attack": 0, "audio_normalizer_decay": 0,
        "audio_normalizer_minimum_level": 0, "audio_normalizer_lower_level": 0,
        "audio_normalizer_upper_level": 0, "audio_normalizer_upper_level_2": null,
        "audio_normalizer_hard_limit_level": null, "audio_normalizer_hard_limit_level_2": null,
        "audio_normalizer_bass_filter": 0, "audio_normalizer_treble_filter": 0,
        "audio_normalizer_sd_mode": false, "audio_normalizer_enable": false,
        "audio_normalizer_map_mode": null, "active": null, "autostart_item": null})"));
    expect_members(document, emitted_leaves(), same_value(emitted_leaves(), ""));
    ASSERT_EQ(document["enc"].array_items().size(), 3U);
    for (const Json& encoder : document["enc"].array_items())
        EXPECT_EQ(encoder.object_items().size(), 25U);
}

TEST(ShoutCast, AFullDocumentGivesEveryPairInOrder)
{
    const Pairs encoders = told_apart(consumed_leaves());
    const Json document = with_encoders(parsed(TOP_DOCUMENT), consumed_leaves(), encoders);
    EXPECT_EQ(consumed<ConsumeShoutCast>(document.dump()), joined(TOP_SETTINGS, encoders));
}

constexpr char TOP_DEFAULTS[] = R"(
    autostart; autorestart=0; driver; item; audio rate; audio channels; audio volume=100;
    audio normalizer attack=1; audio normalizer decay=100; audio normalizer minimum level=-24.000000;
    audio normalizer lower level=-6; audio normalizer upper level=-3; audio normalizer upper level 2;
    audio normalizer hard limit level; audio normalizer hard limit level 2; audio normalizer bass filter=0;
    audio normalizer treble filter=0; audio normalizer sd-mode=0; audio normalizer enable=0;
    audio normalizer map mode; active; autostart item)";

TEST(ShoutCast, NullsReadAsTheDefaults)
{
    const Json document = with_scalars(
        with_encoders(parsed(TOP_DOCUMENT), consumed_leaves(), defaults(consumed_leaves())), nullptr);
    EXPECT_EQ(consumed<ConsumeShoutCast>(document.dump()), joined(TOP_DEFAULTS, defaults(consumed_leaves())));
}

TEST(ShoutCast, ItsOwnDocumentFedBackLeavesTheCodecsMembersAlone)
{
    const Json document = emitted<EmitShoutCast>(joined(TOP_SETTINGS, told_apart(emitted_leaves())));
    Pairs kept;
    for (const Leaf& leaf : emitted_leaves())
        if (leaf.path.back().find("__") == std::string::npos)
            kept.emplace_back(leaf.flat_key, " value of " + leaf.flat_key);
    EXPECT_EQ(kept.size(), 3U * (25 - 6));
    EXPECT_EQ(consumed<ConsumeShoutCast>(document.dump()), joined(TOP_SETTINGS, kept));
}

TEST(ShoutCast, PartialDocumentsChangeOnlyWhatTheyName)
{
    const struct {
        const char* document;
        Pairs pairs;
    } cases[] = {
        {"{}", {}},
        {R"({"enc": [{"mp3_strict_iso": "1", "mp3__strict_iso": "0"}]})", {{"enc0, mp3, strict iso", "1"}}},
        {R"({"enc": [{"rate": "1"}, null, {"rate": "3"}]})", {{"enc0, rate", "1"}, {"enc2, rate", "3"}}},
        {R"({"enc": [null, {"enable": false}]})", {{"enc1, enable", "false"}}},
        {R"({"enc": [{}, {}, {}, {"rate": "4"}]})", {}},
        {R"({"enc": {"0": {"rate": "1"}}})", {}},
        {R"({"enc": null, "item": "/one"})", {{"item", "/one"}}},
        {R"({"driver": "x11"})", {{"driver", "x11"}}},
        {R"({"active": 1, "autorestart": "1"})", {{"autorestart", "0"}, {"active", "0"}}},
        {R"({"audio_normalizer_attack": 2.9, "audio_normalizer_upper_level": "loud"})",
            {{"audio normalizer attack", "2"}, {"audio normalizer upper level", "loud"}}},
    };
    for (const auto& row : cases) {
        const auto consumer = createConsumer("shoutcast", row.document);
        consumer->createItems();
        EXPECT_EQ(consumer->items(), row.pairs) << row.document;
    }
}

TEST(ShoutCast, TheDriverIsWrittenWhateverTheItemHas)
{
    EXPECT_EQ(emitted<EmitShoutCast>({{"driver", "x11"}})["driver"], Json("shoutcast"));
}

}  // namespace
