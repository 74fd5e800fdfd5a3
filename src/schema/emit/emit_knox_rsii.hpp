// The document of a Knox RSII router.
#pragma once

#include "schema/emit_json.hpp"

class EmitKnoxRsii : public EmitJson {
public:
    Document emitJson() const override;
};
