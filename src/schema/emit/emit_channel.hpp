// The document of a channel, and of every item whose driver is not known.
//
// A unit for each section of the document: emit_channel_audio.cpp and so on. What is small stands in
// emit_channel.cpp.
#pragma once

#include "schema/emit_json.hpp"

class EmitChannel : public EmitJson {
public:
    // Throws the C string "Bad ratio format" for a bad aspect ratio, and what std::stod throws for a bad
    // level of the audio meter.
    Document emitJson() const override;

private:
    json11::Json behavior() const;
    json11::Json behavoir_expirationDelay() const;
    json11::Json behavoir_pauseCorrection() const;
    json11::Json behavoir_recoverySpeed() const;
    json11::Json behavoir_systemDelay() const;
    json11::Json delay(const std::string& flat_key) const;

    json11::Json reporting_service() const;

    json11::Json audio() const;
    json11::Json audio_meter() const;
    json11::Json audio_normalizer_passes() const;
    json11::Json audio_normalizer_filters_mapping() const;

    json11::Json video() const;
    json11::Json video_aspect() const;
    json11::Json video_rate() const;

    json11::Json caption_renderEia608() const;
    json11::Json caption_conversion_enable() const;
    json11::Json caption_conversion_force() const;

    json11::Json debug() const;

    json11::Json regions() const;
    json11::Json regions_main() const;
    json11::Json regions_global() const;

    // One region; `keys` is its region_key_map. Only the background music has a policy.
    json11::Json region(const Document& keys, bool with_policy) const;
    json11::Json region_count(const std::string& flat_key) const;
    json11::Json region_pair(const std::string& flat_key, const char* first, const char* second) const;
    json11::Json region_alignment(const std::string& flat_key) const;
};
