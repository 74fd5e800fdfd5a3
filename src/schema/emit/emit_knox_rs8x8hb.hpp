// The document of a Knox RS8x8HB router.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/serial_router.hpp"

class EmitKnoxRs8x8hb : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::KNOX_RS8X8HB>); }
};
