#include "schema/emit/emit_trigger_rs232.hpp"

#include "schema/fields/trigger_rs232.hpp"

Document EmitTriggerRs232::emitJson() const
{
    return members(PACKED<fields::TRIGGER_RS232>);
}
