#include "schema/emit/emit_channel.hpp"

Document EmitChannel::emitJson() const
{
    return {{"name", value("channel name")}};
}
