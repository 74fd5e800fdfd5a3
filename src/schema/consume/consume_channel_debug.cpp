#include "schema/consume/consume_channel.hpp"

namespace {

constexpr char CAPTION_TEXT[] = "Caption data coming out of this channel, for debugging purposes";

}  // namespace

void ConsumerChannel::debug(const Document& document)
{
    if (document.empty())
        return;
    const Params params = section(document, "debug");
    debug_active(params);
    debug_activeItem(params);
    debug_activeSource(params);
    debug_burnIn(params);
    debug_captionStatus_eia608(params);
    debug_captionStatus_cea708(params);
    debug_captionStatus_scte20(params);
    debug_cueStatus_scte20(params);
    debug_realtimeStatus(params);
    debug_pidStatus(params);
    debug_sourceGopStatus(params);
    debug_sourceTimestampStatus(params);
}

void ConsumerChannel::debug_active(Params params)
{
    create_item("active",
        params.string("active").description("Status display, whether or not the channel is active"));
}

void ConsumerChannel::debug_activeItem(Params params)
{
    create_item("active item",
        params.string("activeItem")
            .description(
                "Status display, of the item playing on the main layer. This will match the channel if a playlist or schedule"));
}

void ConsumerChannel::debug_activeSource(Params params)
{
    create_item("active source",
        params.string("activeSource")
            .description(
                "Status display, of the item playing on the main layer, or the main item within the item if a playlist or schedule"));
}

// A setting that the document of a channel does not show.
void ConsumerChannel::debug_burnIn(Params params)
{
    create_item("burn in", params.string("burnIn").or_null().description("Render debug info into the frame"));
}

void ConsumerChannel::debug_captionStatus_eia608(Params params)
{
    create_item(
        "eia-608 caption status", params.push("captionStatus").string("eia608").description(CAPTION_TEXT));
}

void ConsumerChannel::debug_captionStatus_cea708(Params params)
{
    create_item(
        "cea-708 caption status", params.push("captionStatus").string("cea708").description(CAPTION_TEXT));
}

void ConsumerChannel::debug_captionStatus_scte20(Params params)
{
    create_item("scte-20 status", params.push("captionStatus").string("scte20").description(CAPTION_TEXT));
}

void ConsumerChannel::debug_cueStatus_scte20(Params params)
{
    create_item("scte-35 status",
        params.push("cueStatus")
            .string("scte35")
            .description("SCTE-35 data coming out of this channel, for debugging purposes."));
}

void ConsumerChannel::debug_realtimeStatus(Params params)
{
    create_item("realtime status", params.string("realtimeStatus").description("Realtime item status"));
}

void ConsumerChannel::debug_pidStatus(Params params)
{
    create_item("pid status", params.string("pidStatus").description("PID information (i.e. IP source)"));
}

void ConsumerChannel::debug_sourceGopStatus(Params params)
{
    create_item("source gop status",
        params.string("sourceGopStatus").description("MPEG-2 GOP/temporal status from source"));
}

void ConsumerChannel::debug_sourceTimestampStatus(Params params)
{
    create_item("source timestamp status",
        params.string("sourceTimestampStatus").description("MPEG-2 SCR, PTS, and DTS status from source"));
}
