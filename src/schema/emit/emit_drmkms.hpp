// The document of a drmkms output: a channel on a display through Linux DRM/KMS.
#pragma once

#include "schema/emit_json.hpp"

class EmitDrmkms : public EmitJson {
public:
    Document emitJson() const override;
};
