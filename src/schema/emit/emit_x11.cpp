#include "schema/emit/emit_x11.hpp"

using json11::Json;

Document EmitX11::emitJson() const
{
    return {
        {"driver", "x11"},
        {"name", ""},
        {"source", path("item")},
        {"behavior",
            Json::object{
                {"autostart", boolean("autostart")},
                {"restart", boolean("autorestart")},
                {"autostartSource", boolean("autostart item")},
            }},
        x11(),
        {"video",
            Json::object{
                {"stretch", boolean("disable stretching")},
                {"rate", integer("frame rate reduce")},
            }},
        {"debug",
            Json::object{
                {"lastError", value("last error")},
                {"lastNotes", value("last notes")},
            }},
    };
}

// The members "enable" of xv and shm keep the truth of the flat keys, though those say "disable".
std::pair<std::string, Json> EmitX11::x11() const
{
    return {
        "x11", Json::object{
                   {"title", value("title")},
                   {"keepAbove", boolean("always on top")},
                   {"modeset", boolean("modechange")},
                   {"resize", boolean("always resize window")},
                   {"active", boolean("active")},
                   {"window", integer("xwindow")},
                   {"server", value("using x11 server")},
                   {"xv", Json::object{{"enable", boolean("disable xv")}, {"using", boolean("using xv")}}},
                   {"shm", Json::object{{"enable", boolean("disable shm")}, {"using", boolean("using shm")}}},
                   {"fullscreen",
                       Json::object{
                           {"enable", boolean("fullscreen")},
                           {"using", boolean("using fullscreen")},
                           {"position",
                               Json::object{{"x", integer("fullscreen x")}, {"y", integer("fullscreen y")}}},
                       }},
               }};
}
