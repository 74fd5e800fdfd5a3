// The document of a Blackmagic Videohub router.
#pragma once

#include "schema/emit_json.hpp"

class EmitBlackmagicVideohub : public EmitJson {
public:
    Document emitJson() const override;
};
