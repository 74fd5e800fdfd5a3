#include "schema/emit/emit_fbdev.hpp"

#include "schema/fields/fbdev_fields.hpp"

Document EmitFbdev::emitJson() const
{
    return fields(FBDEV_FIELDS);
}
