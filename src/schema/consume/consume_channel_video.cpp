#include "schema/consume/consume_channel.hpp"

void ConsumerChannel::video(const Document& document)
{
    if (document.empty())
        return;
    const Params params = section(document, "video");
    video_size_width(params);
    video_size_height(params);
    video_aspect(params);
    video_rate(params);
    video_subsampling(params);
    video_soften_horizontal_distance(params);
    video_soften_horizontal_passes(params);
    video_soften_vertical_distance(params);
    video_soften_vertical_passes(params);
}

void ConsumerChannel::video_size_width(Params params)
{
    create_item("video width",
        params.push("size")
            .integer("width", "720")
            .description(
                "Width of video frame, in pixels. Note that the frame is stretched to fit the aspect ratio"));
}

void ConsumerChannel::video_size_height(Params params)
{
    create_item("video height",
        params.push("size").integer("height", "480").description("Height of video frame, in pixels."));
}

// Only a whole ratio is written, so that the {} of a ratio that is not set leaves the flat key alone.
void ConsumerChannel::video_aspect(Params params)
{
    params.push("aspect").description("Video frame display aspect ratio. Typical: '4:3' or '16:9'");
    Params width = params;
    Params height = params;
    width.integer("width", "4");
    height.integer("height", "3");
    if (width.hasKey() && height.hasKey())
        create_item("video aspect ratio", ratio_value(width.integerValue(), height.integerValue()));
}

// The member alone is enough, be it null: what it lacks has its default. The suffix follows without a
// blank, and the letter in front of "i bff" and "i tff" is an l.
void ConsumerChannel::video_rate(Params params)
{
    params.push("rate").description(
        "Video frame/field rate. Typical: '30000/1001i bff' for 29.97fps interlaced, '60000/1001p' for 59.94fps progressive, etc.");
    if (!params.hasKey())
        return;
    Params numerator = params;
    Params denominator = params;
    Params kind = params;
    numerator.integer("numerator", "30000");
    denominator.integer("denominator", "1001");
    kind.string("kind", "interlaced bottom-field-first");
    const std::string suffix =
        map_string(kind.stringValue(), {{"progressive", "p"}, {"interlaced bottom-field-first", "li bff"},
                                           {"interlaced top-field-first", "li tff"}});
    create_item("video rate", numerator.integerValue() + ":" + denominator.integerValue() + suffix);
}

void ConsumerChannel::video_subsampling(Params params)
{
    create_item("video chroma format",
        params.string("subsampling", "4:2:0")
            .description(
                "Chroma format and subsampling on output. Normally 4:2:0, for higher chroma detail use 4:2:2 or 4:4:4"));
}

void ConsumerChannel::video_soften_horizontal_distance(Params params)
{
    create_item("horizontal soften",
        params.push("soften")
            .push("horizontal")
            .integer("distance", "0")
            .description(
                "How much to soften the picture horizontally. Set this option if high resolution is desired but the signal is compressed heavily for broadcast"));
}

void ConsumerChannel::video_soften_horizontal_passes(Params params)
{
    create_item(
        "horizontal soften passes", params.push("soften")
                                        .push("horizontal")
                                        .integer("passes", "1")
                                        .description("How many passes to soften the picture horizontally"));
}

void ConsumerChannel::video_soften_vertical_distance(Params params)
{
    create_item("vertical soften",
        params.push("soften")
            .push("vertical")
            .integer("distance", "0")
            .description(
                "How much to soften the picture vertically. Set this option if high resolution is desired but the signal is compressed heavily for broadcast"));
}

void ConsumerChannel::video_soften_vertical_passes(Params params)
{
    create_item(
        "vertical soften passes", params.push("soften")
                                      .push("vertical")
                                      .integer("passes", "1")
                                      .description("How many passes to soften the picture vertically"));
}
