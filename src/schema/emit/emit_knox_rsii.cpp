#include "schema/emit/emit_knox_rsii.hpp"

#include "schema/fields/serial_router_fields.hpp"

Document EmitKnoxRsii::emitJson() const
{
    return fields(KNOX_RSII_FIELDS);
}
