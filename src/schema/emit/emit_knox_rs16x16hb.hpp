// The document of a Knox RS16x16HB router.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/serial_router.hpp"

class EmitKnoxRs16x16hb : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::KNOX_RS16X16HB>); }
};
