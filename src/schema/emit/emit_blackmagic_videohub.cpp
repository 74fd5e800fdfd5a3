#include "schema/emit/emit_blackmagic_videohub.hpp"

#include "schema/fields/network_router.hpp"

Document EmitBlackmagicVideohub::emitJson() const
{
    return members(PACKED<fields::BLACKMAGIC_VIDEOHUB>);
}
