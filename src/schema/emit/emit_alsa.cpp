#include "schema/emit/emit_alsa.hpp"

#include "schema/fields/alsa.hpp"

Document EmitAlsa::emitJson() const
{
    return members(PACKED<fields::ALSA>);
}
