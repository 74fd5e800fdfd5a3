// The document of a Blackmagic Videohub router.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/network_router.hpp"

class EmitBlackmagicVideohub : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::BLACKMAGIC_VIDEOHUB>); }
};
