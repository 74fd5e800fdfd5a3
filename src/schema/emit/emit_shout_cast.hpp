// The document of a shoutcast output: a channel's audio in up to three encoders.
#pragma once

#include <string>

#include "schema/emit_json.hpp"

class EmitShoutCast : public EmitJson {
public:
    Document emitJson() const override;

private:
    // One encoder. `base` is its number, counted from "0".
    json11::Json enc(const std::string& base) const;
};
