#include "schema/emit/emit_drmkms.hpp"

#include "schema/fields/drmkms.hpp"

Document EmitDrmkms::emitJson() const
{
    return members(PACKED<fields::DRMKMS>);
}
