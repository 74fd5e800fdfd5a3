#include "schema/emit/emit_fbdev.hpp"

#include "schema/fields/fbdev.hpp"

Document EmitFbdev::emitJson() const
{
    return members(PACKED<fields::FBDEV>);
}
