#include <boost/algorithm/string/predicate.hpp>
#include <boost/algorithm/string/trim.hpp>

#include "schema/composite_text.hpp"
#include "schema/emit/emit_channel.hpp"

using json11::Json;

Json EmitChannel::audio() const
{
    return Json::object{
        {"channels", integer("audio channels")},
        {"rate", integer("audio rate")},
        {"fetchExtraSample", boolean("fetch audio with extra sample")},
        {"meter", audio_meter()},
        {"ducking",
            Json::object{
                {"test", boolean("ducking test")},
                {"interval", number("ducking time interval")},
                {"level", number("ducking audio level")},
            }},
        {"normalizer",
            Json::object{
                {"enable", boolean("audio normalizer enable")},
                {"attack", number("audio normalizer attack")},
                {"decay", number("audio normalizer decay")},
                {"passes", audio_normalizer_passes()},
                {"filters",
                    Json::object{
                        {"bass", null_or_number("audio normalizer bass filter")},
                        {"treble", null_or_number("audio normalizer treble filter")},
                        {"sdmode", boolean("audio normalizer sd-mode")},
                        {"mapping", audio_normalizer_filters_mapping()},
                    }},
            }},
    };
}

// A single level, without a comma, is no meter. A level that is no number is the one bad number of the
// document that ends the run.
Json EmitChannel::audio_meter() const
{
    const std::vector<std::string> pieces = split(value("audio meter"), ",");
    if (pieces.size() <= 1)
        return Json::array{};
    Json::array levels;
    for (const std::string& piece : pieces) {
        const std::string level = boost::algorithm::trim_copy(piece);
        levels.push_back(level == "-inf" ? Json("Number.NEGATIVE_INFINITY") : Json(std::stod(level)));
    }
    return levels;
}

// Of a level that is not set, only the maximum has a member, which holds null.
Json EmitChannel::audio_normalizer_passes() const
{
    const auto add_level = [this](Json::object& pass, const char* flat_key, const char* json_key) {
        if (!value(flat_key).empty())
            pass[json_key] = number(flat_key);
    };
    Json::object first{{"maximum", nullptr}};
    add_level(first, "audio normalizer minimum level", "minimum");
    add_level(first, "audio normalizer lower level", "lower");
    add_level(first, "audio normalizer upper level", "upper");
    add_level(first, "audio normalizer hard limit level", "maximum");
    Json::object second{{"maximum", nullptr}};
    add_level(second, "audio normalizer upper level 2=", "upper");
    add_level(second, "audio normalizer hard limit level 2=", "maximum");
    return Json::array{first, second};
}

Json EmitChannel::audio_normalizer_filters_mapping() const
{
    const std::string decibel = "decibelm";
    const std::string& mode = value("audio normalizer map mode");
    if (!boost::algorithm::starts_with(mode, decibel))
        return Json::object{{"mode", "linear"}};
    return Json::object{{"mode", "decibel"}, {"intensity", read_integer(mode.substr(decibel.size()))}};
}
