#include "schema/emit/emit_channel.hpp"

#include "schema/fields/channel.hpp"

Document EmitChannel::emitJson() const
{
    return members(PACKED<fields::CHANNEL>);
}
