// The document of a Knox RS16x16HB router.
#pragma once

#include "schema/emit_json.hpp"

class EmitKnoxRs16x16hb : public EmitJson {
public:
    Document emitJson() const override;
};
