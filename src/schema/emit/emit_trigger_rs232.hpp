// The document of an RS-232 trigger: modem status lines that become signals for channels.
#pragma once

#include "schema/emit_json.hpp"

class EmitTriggerRs232 : public EmitJson {
public:
    Document emitJson() const override;
};
