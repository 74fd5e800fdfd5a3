#include "schema/emit/emit_trigger_rs232.hpp"

#include "schema/fields/trigger_rs232_fields.hpp"

Document EmitTriggerRs232::emitJson() const
{
    return fields(TRIGGER_RS232_FIELDS);
}
