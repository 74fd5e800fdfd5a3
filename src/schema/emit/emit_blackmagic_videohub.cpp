#include "schema/emit/emit_blackmagic_videohub.hpp"

#include "schema/fields/network_router_fields.hpp"

Document EmitBlackmagicVideohub::emitJson() const
{
    return fields(BLACKMAGIC_VIDEOHUB_FIELDS);
}
