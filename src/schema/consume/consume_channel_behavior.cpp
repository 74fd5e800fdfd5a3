#include "schema/consume/consume_channel.hpp"

namespace {

std::string delay(const Params& count, const Params& units)
{
    return JsonConsumer::timed_value(
        count.stringValue(), map_string(units.stringValue(), {{"seconds", "s"}, {"frames", "f"}}));
}

}  // namespace

void ConsumerChannel::behavior(const Document& document)
{
    if (document.empty())
        return;
    const Params params = section(document, "behavior");
    behavoir_autostart(params);
    behavoir_expirationDelay(params);
    behavoir_lockMemory(params);
    behavoir_loopPlayNow(params);
    behavoir_pauseCorrection(params);
    behavoir_preview(params);
    behavoir_recoverySpeed(params);
    behavoir_realtime(params);
    behavoir_restart(params);
    behavoir_scheduleExport(params);
    behavoir_systemDelay(params);
    behavoir_match_enable(params);
    behavoir_match_upconvertAudio(params);
    behavoir_match_playNow(params);
}

void ConsumerChannel::behavoir_autostart(Params params)
{
    create_item("autostart",
        params.boolean("autostart", "0").description("Whether or not the item is automatically started"));
}

// Only a whole delay is written, so that the {} of a delay that is not set leaves the flat key alone. The
// system delay differs.
void ConsumerChannel::behavoir_expirationDelay(Params params)
{
    params.push("expirationDelay");
    Params count = params;
    Params units = params;
    count.number("count", "0.500000");
    units.string("units", "seconds");
    if (count.hasKey() && units.hasKey())
        create_item("expiration delay", delay(count, units));
}

void ConsumerChannel::behavoir_lockMemory(Params params)
{
    create_item(
        "lock memory", params.boolean("lockMemory", "0")
                           .description("Whether to lock memory to prevent swapping (for performance)"));
}

void ConsumerChannel::behavoir_loopPlayNow(Params params)
{
    create_item("alt loop", params.boolean("loopPlayNow", "0").description("Loop the item set to Play Now"));
}

void ConsumerChannel::behavoir_pauseCorrection(Params params)
{
    create_item(
        "pause resume rewind", params.integer("pauseCorrection", "0")
                                   .description("How many seconds to rewind after resuming from pause"));
}

void ConsumerChannel::behavoir_preview(Params params)
{
    create_item(
        "preview", params.boolean("preview", "0")
                       .description("Channel is used to preview content, not intended for broadcast"));
}

void ConsumerChannel::behavoir_recoverySpeed(Params params)
{
    create_item("catch up speed",
        params.number("recoverySpeed", "37").or_null().description("Catch-up rendering speed (percentage)."));
}

void ConsumerChannel::behavoir_realtime(Params params)
{
    create_item("realtime process",
        params.boolean("realtime", "1").description("Whether to run as a realtime process (recommended)"));
}

void ConsumerChannel::behavoir_restart(Params params)
{
    create_item("autorestart",
        params.boolean("restart", "0")
            .description(
                "If set, start the channel through a management tool that auto-restarts it on failure"));
}

void ConsumerChannel::behavoir_scheduleExport(Params params)
{
    create_item("schedule export", params.boolean("scheduleExport", "0")
                                       .description("Enable exporting schedule contents for output drivers"));
}

// Here the object alone is enough: what it lacks has its default.
void ConsumerChannel::behavoir_systemDelay(Params params)
{
    params.push("systemDelay");
    if (!params.hasKey())
        return;
    Params count = params;
    Params units = params;
    count.number("count", "1");
    units.string("units", "seconds");
    create_item("system delay", delay(count, units));
}

void ConsumerChannel::behavoir_match_enable(Params params)
{
    create_item("match source",
        params.push("match")
            .boolean("enable", "0")
            .description(
                "If set, auto-set rate, width, height, and audio format to match the item assigned to the main region (if possible)"));
}

void ConsumerChannel::behavoir_match_upconvertAudio(Params params)
{
    create_item("match audio upconvert",
        params.push("match")
            .boolean("upconvertAudio", "1")
            .description("If set, match source but only act if the audio channel count increases"));
}

void ConsumerChannel::behavoir_match_playNow(Params params)
{
    create_item("match source with play now",
        params.push("match")
            .boolean("playNow", "0")
            .description("In addition to the main region, also match items added via 'Play Now'"));
}
