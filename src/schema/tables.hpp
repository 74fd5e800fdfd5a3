// The tables of all documents.
#pragma once

#include "schema/fields/blackmagic_decklink_sdi.hpp"
#include "schema/fields/channel.hpp"
#include "schema/fields/internet_mpeg.hpp"
#include "schema/fields/router.hpp"
#include "schema/fields/schedule_push.hpp"
#include "schema/fields/screen.hpp"
#include "schema/fields/shout_cast.hpp"
#include "schema/fields/sound_card.hpp"
#include "schema/fields/trigger_rs232.hpp"
#include "schema/fields/video_passthru.hpp"
