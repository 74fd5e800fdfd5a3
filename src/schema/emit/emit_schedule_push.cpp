#include "schema/emit/emit_schedule_push.hpp"

#include "schema/fields/schedule_push.hpp"

Document EmitSchedulePush::emitJson() const
{
    return members(PACKED<fields::SCHEDULE_PUSH>);
}
