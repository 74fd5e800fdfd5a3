#include "schema/emit/emit_internet_mpeg.hpp"

#include "schema/fields/internet_mpeg.hpp"

Document EmitInternetMpeg::emitJson() const
{
    return members(PACKED<fields::INTERNET_MPEG>);
}
