// The document of a Knox RSII router.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/serial_router.hpp"

class EmitKnoxRsii : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::KNOX_RSII>); }
};
