#include "schema/emit/emit_channel.hpp"
#include "schema/word_pairs.hpp"

using json11::Json;

Json EmitChannel::behavior() const
{
    return Json::object{
        {"autostart", boolean("autostart")},
        {"expirationDelay", behavoir_expirationDelay()},
        {"lockMemory", boolean("lock memory")},
        {"loopPlayNow", boolean("alt loop")},
        {"pauseCorrection", behavoir_pauseCorrection()},
        {"preview", boolean("preview")},
        {"recoverySpeed", behavoir_recoverySpeed()},
        {"realtime", boolean("realtime process")},
        {"restart", boolean("autorestart")},
        {"scheduleExport", boolean("schedule export")},
        {"systemDelay", behavoir_systemDelay()},
        {"match",
            Json::object{
                {"enable", boolean("match source")},
                {"upconvertAudio", boolean("match audio upconvert")},
                {"playNow", boolean("match source with play now")},
            }},
    };
}

Json EmitChannel::behavoir_expirationDelay() const
{
    return delay("expiration delay");
}

Json EmitChannel::behavoir_pauseCorrection() const
{
    return integer("pause resume rewind");
}

Json EmitChannel::behavoir_recoverySpeed() const
{
    return null_or_number("catch up speed");
}

Json EmitChannel::behavoir_systemDelay() const
{
    return delay("system delay");
}

Json EmitChannel::delay(const std::string& flat_key) const
{
    const std::string& text = value(flat_key);
    if (text.empty())
        return Json::object{};
    const auto [count, unit] = timed_value(text);
    return Json::object{
        {"count", read_number(count)},
        {"units", reverse_map_string(unit, {{"seconds", "s"}, {"frames", "f"}})},
    };
}
