#include "schema/consume/consume_video_passthru_v2.hpp"

#include "schema/fields/video_passthru_fields.hpp"

void ConsumeVideoPassthruV2::createItems()
{
    create_items(VIDEO_PASSTHRU_FIELDS, top());
}
