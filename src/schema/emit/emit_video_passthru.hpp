// The document of a video passthrough input.
#pragma once

#include "schema/emit_json.hpp"

class EmitVideoPassthru : public EmitJson {
public:
    Document emitJson() const override;
};
