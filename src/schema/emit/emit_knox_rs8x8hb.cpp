#include "schema/emit/emit_knox_rs8x8hb.hpp"

#include "schema/fields/serial_router.hpp"

Document EmitKnoxRs8x8hb::emitJson() const
{
    return members(PACKED<fields::KNOX_RS8X8HB>);
}
