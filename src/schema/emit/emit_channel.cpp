#include "schema/emit/emit_channel.hpp"

using json11::Json;

Document EmitChannel::emitJson() const
{
    return {
        {"name", value("channel name")},
        {"behavior", behavior()},
        {"reporting",
            Json::object{
                {"enable", boolean("reporting log")},
                {"interval", number("reporting interval")},
                {"service", reporting_service()},
                {"mode", value("reporting mode")},
                {"lastReport", value("realtime status")},
            }},
        {"audio", audio()},
        {"video", video()},
        {"caption",
            Json::object{
                {"renderEia608", caption_renderEia608()},
                {"conversion",
                    Json::object{
                        {"verticalAdjustment", integer("eia-608 to cea-708 y-adjust")},
                        {"horizontalAdjustment", integer("eia-608 to cea-708 x-adjust")},
                        {"enable", caption_conversion_enable()},
                        {"force", caption_conversion_force()},
                    }},
            }},
        {"debug", debug()},
        {"regions", regions()},
    };
}

// The first part is the empty text in front of the leading slash; a relative path loses its first name.
Json EmitChannel::reporting_service() const
{
    if (value("reporting").empty())
        return nullptr;
    Json::array parts = path("reporting");
    parts.erase(parts.begin());
    return parts;
}

Json EmitChannel::debug() const
{
    return Json::object{
        {"active", value("active")},
        {"activeItem", value("active item")},
        {"activeSource", value("active source")},
        {"captionStatus",
            Json::object{
                {"eia608", value("eia-608 caption status")},
                {"cea708", value("cea-708 caption status")},
                {"scte20", value("scte-20 status")},
            }},
        {"cueStatus", Json::object{{"scte35", value("scte-35 status")}}},
        {"realtimeStatus", value("realtime status")},
        {"pidStatus", value("pid status")},
        {"sourceGopStatus", value("source gop status")},
        {"sourceTimestampStatus", value("source timestamp status")},
    };
}
