// The document of an internet_mpeg output: up to three encoders that send streams over the network.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/internet_mpeg.hpp"

class EmitInternetMpeg : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::INTERNET_MPEG>); }
};
