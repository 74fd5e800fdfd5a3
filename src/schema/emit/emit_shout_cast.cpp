#include "schema/emit/emit_shout_cast.hpp"

#include "schema/fields/shout_cast.hpp"

Document EmitShoutCast::emitJson() const
{
    return members(PACKED<fields::SHOUT_CAST>);
}
