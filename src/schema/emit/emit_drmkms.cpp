#include "schema/emit/emit_drmkms.hpp"

using json11::Json;

Document EmitDrmkms::emitJson() const
{
    return {
        {"driver", "drmkms"},
        {"name", ""},
        {"source", path("item")},
        {"behavior",
            Json::object{
                {"autostart", boolean("autostart")},
                {"restart", boolean("autorestart")},
                {"autostartSource", boolean("autostart item")},
            }},
        kms(),
        {"video",
            Json::object{
                {"forceSize",
                    Json::object{
                        {"width", null_or_integer("force width")},
                        {"height", null_or_integer("force height")},
                    }},
                {"interlaced", boolean("interlaced")},
                {"scaleMode", null_or_value("scale mode")},
            }},
        {"debug",
            Json::object{
                {"lastError", value("last error")},
                {"lastNotes", value("last notes")},
            }},
    };
}

std::pair<std::string, Json> EmitDrmkms::kms() const
{
    return {"kms", Json::object{
                       {"active", value("active")},
                       {"audio", value("audio")},
                       {"restoreOnDisconnect", boolean("restore on item disconnect")},
                       {"backlight", null_or_integer("backlight level")},
                       {"refreshRate", null_or_number("refresh rate")},
                       {"useEDID", boolean("match known")},
                       {"pixelFormat", value("output format")},
                       kms_connector(),
                       {"master",
                           Json::object{
                               {"enable", boolean("drm master")},
                               {"using", boolean("using drm as master")},
                           }},
                       {"fbconOverride",
                           Json::object{
                               {"enable", boolean("fbcon override")},
                               {"using", boolean("using fbcon")},
                           }},
                       {"x11Override", boolean("x override")},
                       {"pageFlipping",
                           Json::object{
                               {"enable", boolean("use page flipping")},
                               {"using", boolean("using page flipping")},
                           }},
                   }};
}

std::pair<std::string, Json> EmitDrmkms::kms_connector() const
{
    return {"connector", Json::object{
                             {"card",
                                 Json::object{
                                     {"select", kms_connector_card_select()},
                                     {"using", value("using device")},
                                 }},
                             {"type", value("connector")},
                             {"index", null_or_integer("connector index")},
                             {"skipUnconnected", boolean("skip unconnected")},
                         }};
}

// A device is named by its index or by its place on the bus, and the settings hold either as a text.
Json EmitDrmkms::kms_connector_card_select() const
{
    const std::string& device = value("device");
    const std::optional<int> index = parse_integer(device);
    return index ? Json(*index) : Json(device);
}
