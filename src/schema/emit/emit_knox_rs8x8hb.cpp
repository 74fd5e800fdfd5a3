#include "schema/emit/emit_knox_rs8x8hb.hpp"

#include "schema/fields/serial_router_fields.hpp"

Document EmitKnoxRs8x8hb::emitJson() const
{
    return fields(KNOX_RS8X8HB_FIELDS);
}
