#include "schema/emit/emit_channel.hpp"

using json11::Json;

Json EmitChannel::video() const
{
    return Json::object{
        {"size", Json::object{{"width", integer("video width")}, {"height", integer("video height")}}},
        {"aspect", video_aspect()},
        {"rate", video_rate()},
        {"subsampling", value("video chroma format")},
        {"soften",
            Json::object{
                {"horizontal",
                    Json::object{
                        {"distance", integer("horizontal soften")},
                        {"passes", integer("horizontal soften passes")},
                    }},
                {"vertical",
                    Json::object{
                        {"distance", integer("vertical soften")},
                        {"passes", integer("vertical soften passes")},
                    }},
            }},
    };
}

Json EmitChannel::video_aspect() const
{
    const std::string& text = value("video aspect ratio");
    if (text.empty())
        return Json::object{};
    const auto [width, height] = ratio_value(text);
    return Json::object{{"width", read_integer(width)}, {"height", read_integer(height)}};
}

Json EmitChannel::video_rate() const
{
    const std::string& text = value("video rate");
    if (text.empty())
        return nullptr;
    const auto [numerator, denominator, kind] = frame_value(text);
    return Json::object{
        {"numerator", read_integer(numerator)},
        {"denominator", read_integer(denominator)},
        {"kind", kind},
    };
}
