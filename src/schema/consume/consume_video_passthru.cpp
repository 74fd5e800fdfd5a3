#include "schema/consume/consume_video_passthru.hpp"

#include "schema/fields/video_passthru_fields.hpp"

void ConsumeVideoPassthru::createItems()
{
    create_items(VIDEO_PASSTHRU_FIELDS, top());
}
