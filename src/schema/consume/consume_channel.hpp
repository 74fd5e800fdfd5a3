// Settings of a channel from its document; the reader of every document without a known driver word.
//
// A unit for each section of the document: consume_channel_audio.cpp and so on. What is small stands in
// consume_channel.cpp. A section's handler takes the whole document, the handlers below it the section.
#pragma once

#include "schema/consume_json.hpp"

class ConsumerChannel : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;

private:
    // The members of a section, none if the document lacks it.
    static Params section(const Document& document, const std::string& key);

    void name(const Document& document);

    void behavior(const Document& document);
    void behavoir_autostart(Params params);
    void behavoir_expirationDelay(Params params);
    void behavoir_lockMemory(Params params);
    void behavoir_loopPlayNow(Params params);
    void behavoir_pauseCorrection(Params params);
    void behavoir_preview(Params params);
    void behavoir_recoverySpeed(Params params);
    void behavoir_realtime(Params params);
    void behavoir_restart(Params params);
    void behavoir_scheduleExport(Params params);
    void behavoir_systemDelay(Params params);
    void behavoir_match_enable(Params params);
    void behavoir_match_upconvertAudio(Params params);
    void behavoir_match_playNow(Params params);

    // The mode and the service have each other's handlers.
    void reporting(const Document& document);
    void reporting_enable(Params params);
    void reporting_interval(Params params);
    void reporting_service(Params params);
    void reporting_mode(Params params);
    void reporting_lastReport(Params params);

    void audio(const Document& document);
    void audio_channels(Params params);
    void audio_rate(Params params);
    void audio_fetchExtraSample(Params params);
    void audio_normalizer(Params params);
    void audio_ducking_test(Params params);
    void audio_ducking_interval(Params params);
    void audio_ducking_level(Params params);
    void audio_normalizer_enable(Params params);
    void audio_normalizer_attack(Params params);
    void audio_normalizer_decay(Params params);
    void audio_normalizer_passes(Params params);
    void audio_normalizer_filters_bass(Params params);
    void audio_normalizer_filters_treble(Params params);
    void audio_normalizer_filters_sdmode(Params params);
    void audio_normalizer_filters_mapping(Params params);

    void video(const Document& document);
    void video_size_width(Params params);
    void video_size_height(Params params);
    void video_aspect(Params params);
    void video_rate(Params params);
    void video_subsampling(Params params);
    void video_soften_horizontal_distance(Params params);
    void video_soften_horizontal_passes(Params params);
    void video_soften_vertical_distance(Params params);
    void video_soften_vertical_passes(Params params);

    void caption(const Document& document);
    void caption_renderEia608(Params params);
    void caption_conversion_verticalAdjustment(Params params);
    void caption_conversion_horizontalAdjustment(Params params);
    void caption_conversion(Params params);

    void debug(const Document& document);
    void debug_active(Params params);
    void debug_activeItem(Params params);
    void debug_activeSource(Params params);
    void debug_burnIn(Params params);
    void debug_captionStatus_eia608(Params params);
    void debug_captionStatus_cea708(Params params);
    void debug_captionStatus_scte20(Params params);
    void debug_cueStatus_scte20(Params params);
    void debug_realtimeStatus(Params params);
    void debug_pidStatus(Params params);
    void debug_sourceGopStatus(Params params);
    void debug_sourceTimestampStatus(Params params);

    void regions(const Document& document);
    void regions_main(Params params);
    void regions_item(Params params);
    void regions_urgent(Params params);
    void regions_music(Params params);
    void regions_music_policy(Params params);
    void regions_alerts(Params params);
    void regions_global(Params params);

    // One region; `keys` is its region_key_map, in which the flat keys of the handlers are looked up.
    void region(const Params& params, const Document& keys);
    void region_enable(Params params, const std::string& flat_key);
    void region_media_path(Params params, const std::string& flat_key);
    void region_media_loop(Params params, const std::string& flat_key);
    void region_media_mimeType(Params params, const std::string& flat_key);
    void region_media_leafPath(Params params, const std::string& flat_key);
    void region_media_leafMimeType(Params params, const std::string& flat_key);
    void region_media_context(Params params, const std::string& flat_key);
    void region_media_played(Params params, const std::string& flat_key);
    void region_media_state(Params params, const std::string& flat_key);
    void region_audio_enable(Params params, const std::string& flat_key);
    void region_audio_volume(Params params, const std::string& flat_key);
    void region_audio_force(Params params, const std::string& flat_key);
    void region_audio_rendering(Params params, const std::string& flat_key);
    void region_video_enable(Params params, const std::string& flat_key);
    void region_video_geometry_size(Params params, const std::string& flat_key);
    void region_video_geometry_position(Params params, const std::string& flat_key);
    void region_video_force(Params params, const std::string& flat_key);
    void region_video_align(Params params, const std::string& flat_key);
    void region_video_rendering(Params params, const std::string& flat_key);
};
