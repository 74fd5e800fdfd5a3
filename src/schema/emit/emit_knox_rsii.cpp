#include "schema/emit/emit_knox_rsii.hpp"

#include "schema/fields/serial_router.hpp"

Document EmitKnoxRsii::emitJson() const
{
    return members(PACKED<fields::KNOX_RSII>);
}
