#include "schema/consume/consume_channel.hpp"
#include "schema/region_defs.hpp"

using json11::Json;

void ConsumerChannel::regions(const Document& document)
{
    if (document.empty())
        return;
    const Params params = section(document, "regions");
    regions_main(params);
    regions_item(params);
    regions_urgent(params);
    regions_music(params);
    regions_alerts(params);
    regions_global(params);
}

void ConsumerChannel::regions_main(Params params)
{
    params.push("main");
    Params kind = params;
    kind.string("kind", "item").description("The currently-active main layer");
    if (!kind.hasKey())
        return;
    const std::string word = kind.stringValue();
    if (word == "item" || word == "urgent" || word == "music")
        create_item("main layer", word);
    else if (word == "alerts")
        create_item("main layer", params.string("part").stringValue());
    else if (word == "global")
        create_item("main layer", params.integer("index").integerValue());
}

void ConsumerChannel::regions_item(Params params)
{
    region(params.push("item"), region_key_map("item"));
}

void ConsumerChannel::regions_urgent(Params params)
{
    region(params.push("urgent"), region_key_map("urgent"));
}

void ConsumerChannel::regions_music(Params params)
{
    params.push("music");
    region(params, region_key_map("background music"));
    regions_music_policy(params);
}

// The pair goes out unconditionally: a document without a policy, and even one without regions, yields an
// empty key with an empty value, which a running channel is sent. The hyphens of "if-no-audio" stay.
void ConsumerChannel::regions_music_policy(Params params)
{
    auto [key, value] = parse_item("background music default policy",
        params.string("policy", "if-no-audio").description("The global background music region"));
    create_item(std::move(key), std::move(value));
}

void ConsumerChannel::regions_alerts(Params params)
{
    params.push("alerts");
    Params text = params;
    Params media = params;
    region(text.push("text"), region_key_map("eas scroll text"));
    region(media.push("media"), region_key_map("eas av"));
}

void ConsumerChannel::regions_global(Params params)
{
    const Json global = params.document["global"];
    params.push("global");
    for (std::size_t i = 0; i < GLOBAL_ITEMS && !global[i].is_null(); ++i) {
        Params item = params;
        region(item.push(std::to_string(i)), region_key_map("global item " + std::to_string(i + 1)));
    }
}

void ConsumerChannel::region(const Params& params, const Document& keys)
{
    const Json tree(keys);
    const auto key = [&tree](const JsonPath& member) { return reduce(tree, member).string_value(); };
    region_enable(params, key({"enable"}));
    region_media_path(params, key({"media", "path"}));
    region_media_loop(params, key({"media", "loop"}));
    region_media_mimeType(params, key({"media", "mimeType"}));
    region_media_leafPath(params, key({"media", "leafPath"}));
    region_media_leafMimeType(params, key({"media", "leafMimeType"}));
    region_media_context(params, key({"media", "context"}));
    region_media_played(params, key({"media", "played"}));
    region_media_state(params, key({"media", "state"}));
    region_audio_enable(params, key({"audio", "enable"}));
    region_audio_volume(params, key({"audio", "volume"}));
    region_audio_force(params, key({"audio", "force"}));
    region_audio_rendering(params, key({"audio", "rendering"}));
    region_video_enable(params, key({"video", "enable"}));
    region_video_geometry_size(params, key({"video", "geometry", "size"}));
    region_video_geometry_position(params, key({"video", "geometry", "position"}));
    region_video_force(params, key({"video", "force"}));
    region_video_align(params, key({"video", "align"}));
    region_video_rendering(params, key({"video", "rendering"}));
}

void ConsumerChannel::region_enable(Params params, const std::string& flat_key)
{
    create_item(flat_key, params.boolean("enable", "1").description("Enable the layer"));
}

void ConsumerChannel::region_media_path(Params params, const std::string& flat_key)
{
    create_item(
        flat_key, params.push("media").array("path").description("Filesystem path of the assigned item"));
}

void ConsumerChannel::region_media_loop(Params params, const std::string& flat_key)
{
    create_item(flat_key, params.push("media").boolean("loop").description("Loop the assigned item"));
}

void ConsumerChannel::region_media_mimeType(Params params, const std::string& flat_key)
{
    create_item(flat_key,
        params.push("media")
            .string("mimeType")
            .description(
                "File type of the media item. This is set (as a hack) by zelm_chctl not by the Render Manager"));
}

void ConsumerChannel::region_media_leafPath(Params params, const std::string& flat_key)
{
    create_item(flat_key,
        params.push("media").array("leafPath").description("Item at the lowest level of the hierarchy"));
}

void ConsumerChannel::region_media_leafMimeType(Params params, const std::string& flat_key)
{
    create_item(flat_key,
        params.push("media")
            .string("leafMimeType")
            .description(
                "File type of the item at the lowest level of the hierarchy. This is set (as a hack) by zelm_chctl"));
}

void ConsumerChannel::region_media_context(Params params, const std::string& flat_key)
{
    create_item(flat_key,
        params.push("media").integer("context").or_null("-1").description(
            "Context ID acquired and currently in use by the render manager for playback with this item"));
}

void ConsumerChannel::region_media_played(Params params, const std::string& flat_key)
{
    create_item(flat_key, params.push("media").number("played").or_null("-1").description(
                              "Current playback time of the assigned item in seconds"));
}

void ConsumerChannel::region_media_state(Params params, const std::string& flat_key)
{
    create_item(flat_key,
        params.push("media").string("state").description(
            "State of the item, currently as a numeric enumeration, but should be handled as a string. For debugging purposes only, do not expose to UI"));
}

void ConsumerChannel::region_audio_enable(Params params, const std::string& flat_key)
{
    create_item(flat_key, params.push("audio").boolean("enable", "1").description("Play audio"));
}

void ConsumerChannel::region_audio_volume(Params params, const std::string& flat_key)
{
    create_item(
        flat_key, params.push("audio").number("volume", "100").description("Audio volume percentage"));
}

void ConsumerChannel::region_audio_force(Params params, const std::string& flat_key)
{
    create_item(flat_key, params.push("audio")
                              .boolean("force", "0")
                              .description("Force processing audio, even with no content"));
}

void ConsumerChannel::region_audio_rendering(Params params, const std::string& flat_key)
{
    create_item(flat_key, params.push("audio")
                              .boolean("rendering")
                              .description("Internal render manager decision, whether the audio is enabled"));
}

void ConsumerChannel::region_video_enable(Params params, const std::string& flat_key)
{
    create_item(flat_key, params.push("video").boolean("enable").description("Play video"));
}

void ConsumerChannel::region_video_geometry_size(Params params, const std::string& flat_key)
{
    params.push("video")
        .push("geometry")
        .string("size")
        .description("The size of the region, in percent of the channel");
    if (!params.hasKey())
        return;
    const Json size = reduce(params.document, params.path);
    create_item(flat_key, position_value(number(size["width"]), number(size["height"])));
}

void ConsumerChannel::region_video_geometry_position(Params params, const std::string& flat_key)
{
    params.push("video")
        .push("geometry")
        .string("position")
        .description("The position of the region, in percent of the channel");
    if (!params.hasKey())
        return;
    const Json position = reduce(params.document, params.path);
    create_item(flat_key, position_value(number(position["x"]), number(position["y"])));
}

void ConsumerChannel::region_video_force(Params params, const std::string& flat_key)
{
    create_item(flat_key, params.push("video")
                              .boolean("force", "0")
                              .description("Force processing video, even with no content"));
}

// Every region with a video has an alignment, also where the document does not name one.
void ConsumerChannel::region_video_align(Params params, const std::string& flat_key)
{
    params.push("video");
    if (!params.hasKey())
        return;
    params.push("align").description(
        "When the item is fitted into the region according to its aspect ratio, and there is empty space, where should the item be placed?.");
    Params vertical = params;
    Params horizontal = params;
    vertical.string("vertical", "center");
    horizontal.string("horizontal", "center");
    create_item(flat_key, vertical.stringValue() + " " + horizontal.stringValue());
}

// The last word on the flat key that region_video_enable writes as well.
void ConsumerChannel::region_video_rendering(Params params, const std::string& flat_key)
{
    create_item(
        flat_key, params.push("video")
                      .boolean("rendering", "0")
                      .description("Internal render manager decision, whether the video is enabled."));
}
