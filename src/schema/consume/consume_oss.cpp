#include "schema/consume/consume_oss.hpp"

#include "schema/fields/audio_normalizer_fields.hpp"
#include "schema/fields/oss_fields.hpp"

void ConsumeOss::createItems()
{
    create_items(OSS_FIELDS, top());
    create_items(audio_normalizer_fields(), top());
    create_items(OSS_STATUS_FIELDS, top());
}
