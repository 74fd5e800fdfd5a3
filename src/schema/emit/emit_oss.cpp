#include "schema/emit/emit_oss.hpp"

#include "schema/fields/oss.hpp"

Document EmitOss::emitJson() const
{
    return members(PACKED<fields::OSS>);
}
