#include "schema/consume/consume_pulse_audio.hpp"

#include "schema/fields/pulse_audio.hpp"

void ConsumePulseAudio::createItems()
{
    create_items(PACKED<fields::PULSE_AUDIO>);
}
