#include "schema/consume/consume_video_passthru.hpp"

#include "schema/fields/video_passthru.hpp"

void ConsumeVideoPassthru::createItems()
{
    create_items(PACKED<fields::VIDEO_PASSTHRU>);
}
