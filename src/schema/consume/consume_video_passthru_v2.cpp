#include "schema/consume/consume_video_passthru_v2.hpp"

#include "schema/fields/video_passthru.hpp"

void ConsumeVideoPassthruV2::createItems()
{
    create_items(PACKED<fields::VIDEO_PASSTHRU>);
}
