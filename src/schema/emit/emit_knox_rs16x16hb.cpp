#include "schema/emit/emit_knox_rs16x16hb.hpp"

#include "schema/fields/serial_router.hpp"

Document EmitKnoxRs16x16hb::emitJson() const
{
    return members(PACKED<fields::KNOX_RS16X16HB>);
}
