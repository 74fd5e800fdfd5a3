// The document of a Knox RS8x8HB router.
#pragma once

#include "schema/emit_json.hpp"

class EmitKnoxRs8x8hb : public EmitJson {
public:
    Document emitJson() const override;
};
