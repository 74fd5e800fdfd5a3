// The document of an RS-232 trigger: modem status lines that become signals for channels.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/trigger_rs232.hpp"

class EmitTriggerRs232 : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::TRIGGER_RS232>); }
};
