#include "schema/emit/emit_x11.hpp"

#include "schema/fields/x11.hpp"

Document EmitX11::emitJson() const
{
    return members(PACKED<fields::X11>);
}
