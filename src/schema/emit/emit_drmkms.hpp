// The document of a drmkms output: a channel on a display through Linux DRM/KMS.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/drmkms.hpp"

class EmitDrmkms : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::DRMKMS>); }
};
