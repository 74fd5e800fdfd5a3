// The document of an oss output: a channel's audio on an OSS device.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/oss.hpp"

class EmitOss : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::OSS>); }
};
