// Settings of a drmkms output from its document. One handler for each object and member, named after its
// path.
#pragma once

#include "schema/consume_json.hpp"

class ConsumeDrmkms : public JsonConsumer {
public:
    using JsonConsumer::JsonConsumer;
    void createItems() override;

private:
    void driver(Params params);
    void name(Params params);
    void source(Params params);

    void behavior(Params params);
    void behavior_autostart(Params params);
    void behavior_restart(Params params);
    void behavior_autostartSource(Params params);

    void kms(Params params);
    void kms_active(Params params);
    void kms_audio(Params params);
    void kms_restoreOnDisconnect(Params params);
    void kms_backlight(Params params);
    void kms_refreshRate(Params params);
    void kms_useEDID(Params params);
    void kms_pixelFormat(Params params);
    void kms_connector(Params params);
    void kms_connector_card(Params params);
    void kms_connector_card_select(Params params);
    void kms_connector_card_using(Params params);
    void kms_connector_type(Params params);
    void kms_connector_index(Params params);
    void kms_connector_skipUnconnected(Params params);
    void kms_master(Params params);
    void kms_master_enable(Params params);
    void kms_master_using(Params params);
    void kms_fbconOverride(Params params);
    void kms_fbconOverride_enable(Params params);
    void kms_fbconOverride_using(Params params);
    void kms_x11Override(Params params);
    void kms_pageFlipping(Params params);
    void kms_pageFlipping_enable(Params params);
    void kms_pageFlipping_using(Params params);

    void video(Params params);
    void video_forceSize(Params params);
    void video_forceSize_width(Params params);
    void video_forceSize_height(Params params);
    void video_interlaced(Params params);
    void video_scaleMode(Params params);

    void debug(Params params);
    void debug_lastError(Params params);
    void debug_lastNotes(Params params);
};
