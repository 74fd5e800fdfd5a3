#include "schema/consume/consume_channel.hpp"

void ConsumerChannel::caption(const Document& document)
{
    if (document.empty())
        return;
    const Params params = section(document, "caption");
    caption_renderEia608(params);
    caption_conversion_verticalAdjustment(params);
    caption_conversion_horizontalAdjustment(params);
    caption_conversion(params);
}

void ConsumerChannel::caption_renderEia608(Params params)
{
    create_item("eia-608 render captions",
        params.string("renderEia608")
            .or_null("None")
            .description("If set, render EIA-608 captions to the output (making them open captions)"));
}

void ConsumerChannel::caption_conversion_verticalAdjustment(Params params)
{
    create_item("eia-608 to cea-708 y-adjust",
        params.push("conversion")
            .integer("verticalAdjustment", "0")
            .description(
                "608-to-708 vertical position adjustment from center, 1/5th character cell units according to CEA-708-E"));
}

void ConsumerChannel::caption_conversion_horizontalAdjustment(Params params)
{
    create_item("eia-608 to cea-708 x-adjust",
        params.push("conversion")
            .integer("horizontalAdjustment", "0")
            .description(
                "608-to-708 horizontal position adjustment from center, 1/5th character cell units according to CEA-708-E"));
}

// Two members are one switch of three positions: "-1" converts, "1" converts even what has captions of its
// own, and "0" doesn't, also when it is forced to.
void ConsumerChannel::caption_conversion(Params params)
{
    params.push("conversion");
    Params enable = params;
    Params force = params;
    enable.boolean("enable", "1")
        .description(
            "Enable 608-to-708 conversion. Conversion will not occur if the source already provides its own 708 captions");
    force.boolean("force", "0")
        .description("Perform 608-to-708 conversion even if 708 captions are already present");
    if (!enable.hasKey() || !force.hasKey())
        return;
    std::string position = "0";
    if (enable.booleanValue() == "1")
        position = force.booleanValue() == "1" ? "1" : "-1";
    create_item("eia-608 to cea-708 conversion", position);
}
