// Settings of an x11 output from its document. One handler for each object and member, named after its
// path.
#pragma once

#include "schema/consume_json.hpp"

class ConsumeX11 : public JsonConsumer {
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

    void x11(Params params);
    void x11_title(Params params);
    void x11_keepAbove(Params params);
    void x11_modeset(Params params);
    void x11_resize(Params params);
    void x11_active(Params params);
    void x11_window(Params params);
    void x11_server(Params params);
    void x11_xv(Params params);
    void x11_xv_enable(Params params);
    void x11_xv_using(Params params);
    void x11_shm(Params params);
    void x11_shm_enable(Params params);
    void x11_shm_using(Params params);
    void x11_fullscreen(Params params);
    void x11_fullscreen_enable(Params params);
    void x11_fullscreen_using(Params params);
    void x11_fullscreen_position(Params params);
    void x11_fullscreen_position_x(Params params);
    void x11_fullscreen_position_y(Params params);

    void video(Params params);
    void video_stretch(Params params);
    void video_rate(Params params);

    void debug(Params params);
    void debug_lastError(Params params);
    void debug_lastNotes(Params params);
};
