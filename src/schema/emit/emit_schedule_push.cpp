#include "schema/emit/emit_schedule_push.hpp"

#include "schema/fields/schedule_push_fields.hpp"

Document EmitSchedulePush::emitJson() const
{
    return fields(SCHEDULE_PUSH_FIELDS);
}
