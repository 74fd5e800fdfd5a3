#include "schema/emit/emit_channel.hpp"

using json11::Json;

Json EmitChannel::caption_renderEia608() const
{
    const std::string& field = value("eia-608 render captions");
    return field.empty() || field == "None" ? Json() : Json(field);
}

// One flat key is a switch of three positions: "-1" converts, "0" doesn't, and everything else, also
// nothing, converts even what has captions of its own.
Json EmitChannel::caption_conversion_enable() const
{
    return value("eia-608 to cea-708 conversion") != "0";
}

Json EmitChannel::caption_conversion_force() const
{
    const std::string& position = value("eia-608 to cea-708 conversion");
    return position != "0" && position != "-1";
}
