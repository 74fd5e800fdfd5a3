// The tables of all documents.
#pragma once

#include "schema/fields/alsa.hpp"
#include "schema/fields/blackmagic_decklink_sdi.hpp"
#include "schema/fields/channel.hpp"
#include "schema/fields/drmkms.hpp"
#include "schema/fields/fbdev.hpp"
#include "schema/fields/internet_mpeg.hpp"
#include "schema/fields/oss.hpp"
#include "schema/fields/pulse_audio.hpp"
#include "schema/fields/router.hpp"
#include "schema/fields/schedule_push.hpp"
#include "schema/fields/shout_cast.hpp"
#include "schema/fields/trigger_rs232.hpp"
#include "schema/fields/video_passthru.hpp"
#include "schema/fields/x11.hpp"
