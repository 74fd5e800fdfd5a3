// The document of a channel, and of every item whose driver is not known.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/channel.hpp"

class EmitChannel : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::CHANNEL>); }
};
