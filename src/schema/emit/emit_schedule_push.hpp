// The document of a schedule_push output: a channel's schedule on its way to web and file servers.
#pragma once

#include "schema/emit_json.hpp"
#include "schema/fields/schedule_push.hpp"

class EmitSchedulePush : public EmitJson {
public:
    Document emitJson() const override { return members(PACKED<fields::SCHEDULE_PUSH>); }
};
