// The document of a shoutcast output: a channel's audio in up to three encoders.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/shout_cast.hpp"

class EmitShoutCast : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::SHOUT_CAST>); }
};
