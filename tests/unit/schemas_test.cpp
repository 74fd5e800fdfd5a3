// The drivers whose schemas are lists of keys, in the order in which a document's pairs are applied.
#include "unit/schema_rows.hpp"

using json11::Json;

namespace {

constexpr char NORMALIZER[] = R"(
    audio normalizer attack:integer=1; audio normalizer decay:integer=100;
    audio normalizer minimum level:number=-24; audio normalizer lower level:number=-6;
    audio normalizer upper level:number=-3; audio normalizer upper level 2:number?;
    audio normalizer hard limit level:number?; audio normalizer hard limit level 2:number?;
    audio normalizer bass filter:integer=0; audio normalizer treble filter:integer=0;
    audio normalizer sd-mode:switch=0; audio normalizer enable:switch=0; audio normalizer map mode)";

constexpr char ALSA[] = R"(
    autostart; autorestart:switch=0; driver:driver; item; audio volume:text=100; alsa output:text=default;
    audio rate; audio channels; allow channel mapping:text=0; allow resampling:text=0; NORMALIZER;
    active; active mixer controls; alsa buffer size; audio last error; autostart item; audio last notes)";

constexpr char OSS[] = R"(
    autostart; autorestart:switch=0; driver:driver; item; audio volume:text=100; audio rate; audio channels;
    oss output; NORMALIZER; active; oss buffer size; audio last error; autostart item)";

constexpr char PULSE_AUDIO[] = R"(
    autostart; autorestart:switch=0; driver:driver; item; audio volume:text=100; audio rate; audio channels;
    NORMALIZER; active; audio last error; autostart item; audio last notes; pulseaudio sink)";

constexpr char DECKLINK[] = R"(
    autostart; autorestart:switch=0; driver:driver; item; audio volume:text=100; audio bits; audio channels;
    audio convert channels; audio out channel 01; audio out channel 02; audio out channel 03;
    audio out channel 04; audio out channel 05; audio out channel 06; audio out channel 07;
    audio out channel 08; audio out channel 09; audio out channel 10; audio out channel 11;
    audio out channel 12; audio out channel 13; audio out channel 14; audio out channel 15;
    audio out channel 16; card index:text=-1; enable audio:switch=1; eia-608 line 21 first/odd;
    eia-608 line 21 second/even; eia-608 line 21 first/odd use vanc; eia-608 line 21 second/even use vanc;
    eia-608 line 21 first/odd scanline; eia-608 line 21 second/even scanline; force width; force height;
    force fps; 10-bit yuv; vanc test:switch?; enable vanc:switch?; vanc first line;
    vanc first line 2nd field:switch?; vanc data packet format; enable vanc eia-608:switch?;
    enable vanc cea-708:switch?; vanc eia-608 split across fields; vanc cea-708 split across fields;
    vanc one packet per line; resize video; resize video to; vanc cea-708 encode ideal framerate:switch?;
    max video delay; no sdk disablevideooutput:switch?; no sdk disableaudiooutput:switch?;
    aggressive shutdown:switch?; decklink enable sdi output:switch?; decklink enable hdmi output:switch?;
    decklink enable optical sdi output:switch?; decklink enable component output:switch?;
    decklink enable composite output:switch?; decklink enable s-video output:switch?;
    auto restart on stuck audio:switch=1; auto restart if no devices:text=0; vanc horizontal offset;
    use sdk configuration interface; enable concurrent init:switch=-1; NORMALIZER;
    active; last notes; last error; using device; eia-608 caption status; autostart item)";

constexpr char FBDEV[] = R"(
    autostart; autorestart:switch=0; driver:driver; item; force width; force height; device; output format;
    refresh rate; take framebuffer console:text=-1; active; last notes; last error; using device; using fbcon;
    autostart item)";

constexpr char SCHEDULE_PUSH[] = R"(
    autostart; driver:driver; item; active; post url; post interval; post status; ftp1 url; ftp1 interval;
    ftp1 format:text=xml; ftp1 status; ftp2 url; ftp2 interval; ftp2 format:text=xml; ftp2 status)";

constexpr char TRIGGER_RS232[] = R"(
    port; poll interval; set dtr; set rts; load drivers:text=1; ri signal name; ri signal invert;
    cts signal name; cts signal invert; dsr signal name; dsr signal invert; dcd signal name;
    dcd signal invert; channels; autostart; offline)";

constexpr char NETWORK_ROUTER[] =
    "stay resident; autostart; driver:driver; ip address; port; inputs; outputs; offline";
constexpr char SERIAL_ROUTER[] = R"(
    stay resident; autostart; driver:driver; port; serial port baud rate; inputs; outputs; route delay;
    offline)";

// All texts.
constexpr char VIDEO_PASSTHRU[] = R"(
    driver; input; input index; interface; pixel format; standard; width; height; rate; system delay;
    expiration delay; buffers; aspect ratio; device index; method; stay resident=0; auto video shutdown=1;
    url; audio interface; audio device index; alsa device; audio rate; audio channels; enable mpeg output=1;
    2 encoding; encode mpeg-2 video bitrate; encode mpeg-2 audio bitrate; force field order=0; 10-bit yuv;
    line 21=1; eia-608 vanc=1; cea-708 vanc=1; mpeg source enable cc=1; audio boost;
    sdi active picture offset; vbi scanline adjust; force mpeg pes retranscode; force mpeg audio retranscode;
    force mpeg video retranscode; sdi audio full scale=1; decklink black output during capture=1;
    decklink direct passthrough during capture=0; mpeg cpu threshhold; tuner frequency;
    use sdk configuration interface; background music; 2nd thread writing=1; offline;
    video flag status, no signal, detect=1; video flag status, black picture, detect=0;
    video flag status, blue picture, detect=0; video flag status, no audio, detect=1;
    video flag status, still picture, detect=0; video flag status, no signal, enable=0;
    video flag status, black picture, enable=0; video flag status, blue picture, enable=0;
    video flag status, no audio, enable=0; video flag status, still picture, enable=0;
    video flag status, no signal, time=30; video flag status, black picture, time=30;
    video flag status, blue picture, time=30; video flag status, no audio, time=30;
    video flag status, still picture, time=30; video flag status, no signal, force;
    video flag status, black picture, force; video flag status, blue picture, force;
    video flag status, no audio, force; video flag status, still picture, force;
    video flag status, no signal; video flag status, black picture; video flag status, blue picture;
    video flag status, no audio; video flag status, still picture; video flag status, no audio, active level;
    video flag status, black picture, luma threshhold=8;
    video flag status, black picture, chroma threshhold=12;
    video flag status, black picture, color=#000000; video flag status, blue picture, luma threshhold=16;
    video flag status, blue picture, chroma threshhold=24; video flag status, blue picture, color=#0000e0;
    video flag status, no audio, detection threshhold=-25.00;
    video flag status, still picture, luma threshhold=8;
    video flag status, still picture, chroma threshhold=12;
    active=                ; active source=         ; last error; last notes; eia-608 caption status;
    mpeg ts program; match source=0; match audio upconvert=1; shared memory limit; ip buffer size;
    audio sync adjust; thread limit)";

// Nested documents. What a document has for the driver and the name goes to the nameless key.
constexpr char X11[] = R"(
    :driver=x11@driver; :none/text@name; item:path@source; autostart:switch=0@behavior.autostart;
    autorestart:switch=0@behavior.restart; autostart item:switch=0@behavior.autostartSource;
    title:text=Tavorn 4 X11/XVideo output@x11.title; always on top:switch=0@x11.keepAbove;
    modechange:switch=0@x11.modeset; always resize window:switch=0@x11.resize; active:switch=0@x11.active;
    xwindow:integer=0@x11.window; using x11 server:text@x11.server; disable xv:switch=1@x11.xv.enable;
    using xv:switch=0@x11.xv.using; disable shm:switch=1@x11.shm.enable; using shm:switch=0@x11.shm.using;
    fullscreen:switch=0@x11.fullscreen.enable; using fullscreen:switch=0@x11.fullscreen.using;
    fullscreen x:integer=0@x11.fullscreen.position.x; fullscreen y:integer=0@x11.fullscreen.position.y;
    disable stretching:switch=1@video.stretch; frame rate reduce:integer=0@video.rate;
    last error:text@debug.lastError; last notes:text@debug.lastNotes)";

constexpr char DRMKMS[] = R"(
    :driver=drmkms@driver; :none/text@name; item:path@source; autostart:switch=0@behavior.autostart;
    autorestart:switch=0@behavior.restart; autostart item:switch=0@behavior.autostartSource;
    active:text@kms.active; audio:text=on@kms.audio;
    restore on item disconnect:switch=0@kms.restoreOnDisconnect; backlight level:integer?@kms.backlight;
    refresh rate:number?@kms.refreshRate; match known:switch=1@kms.useEDID;
    output format:text=rgb888@kms.pixelFormat; device:device/text=0@kms.connector.card.select;
    using device:text@kms.connector.card.using; connector:text=hdmi@kms.connector.type;
    connector index:integer?@kms.connector.index; skip unconnected:switch=1@kms.connector.skipUnconnected;
    drm master:switch=0@kms.master.enable; using drm as master:switch=0@kms.master.using;
    fbcon override:switch=0@kms.fbconOverride.enable; using fbcon:switch=0@kms.fbconOverride.using;
    x override:switch=1@kms.x11Override; use page flipping:switch=1@kms.pageFlipping.enable;
    using page flipping:switch=0@kms.pageFlipping.using; force width:integer?@video.forceSize.width;
    force height:integer?@video.forceSize.height; interlaced:switch=0@video.interlaced;
    scale mode:text?@video.scaleMode; last error:text@debug.lastError; last notes:text@debug.lastNotes)";

TEST(Schemas, EveryKeyOfEveryDriverGoesBothWays)
{
    const struct {
        const char* driver;
        const char* list;
        const char* usual_kind = "text?";
    } cases[] = {
        {"alsa", ALSA},
        {"oss", OSS},
        {"pulseaudio", PULSE_AUDIO},
        {"blackmagic_decklink_sdi", DECKLINK},
        {"fbdev", FBDEV},
        {"schedule_push", SCHEDULE_PUSH},
        {"trigger_rs232", TRIGGER_RS232},
        {"blackmagic_videohub", NETWORK_ROUTER},
        {"sierra_video_aspen_hdsdi", NETWORK_ROUTER},
        {"knox_rs16x16hb", SERIAL_ROUTER},
        {"knox_rs8x8hb", SERIAL_ROUTER},
        {"knox_rsii", SERIAL_ROUTER},
        {"video_passthru", VIDEO_PASSTHRU, "text"},
        {"video_passthru_v2", VIDEO_PASSTHRU, "text"},
        {"x11", X11},
        {"drmkms", DRMKMS},
    };
    for (const auto& row : cases) {
        const Rows keys = rows(replaced(row.list, "NORMALIZER", NORMALIZER), row.usual_kind);
        expect_written(row.driver, keys, unset(row.driver, keys));
        expect_read(row.driver, keys);
    }
}

TEST(Schemas, DocumentsChangeOnlyWhatTheyName)
{
    const struct {
        const char* driver;
        const char* document;
        Pairs pairs;
    } cases[] = {
        {"x11", "not JSON", {}},
        {"x11", "[1]", {}},
        {"x11", R"({"x11": {}})", {}},
        {"x11", R"({"source": ["a", 1, "b"]})", {{"item", "a//b"}}},
        {"drmkms", R"({"kms": {"connector": {}}, "video": null})", {}},
        {"trigger_rs232", R"({"driver": "trigger_rs232"})", {}},
        {"knox_rsii", R"({"ip_address": "10.0.0.1"})", {}},
        {"blackmagic_videohub", R"({"route_delay": "5", "port": null})", {{"port", ""}}},
        {"video_passthru", R"({"2_encoding": "0", "2 encoding": "0", "mpeg_cpu_threshold": "5"})", {}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(consumed(row.driver, row.document), row.pairs) << row.driver << row.document;
}

TEST(Schemas, OtherWordsGetTheChannels)
{
    for (const char* word : {"", "channel", "newtek_ndi", "X11", "x11 ", "video-passthru"}) {
        EXPECT_EQ(emitted(word, {{"alt loop", "1"}})["behavior"]["loopPlayNow"], Json(true)) << word;
        EXPECT_EQ(consumed(word, R"({"name": "One"})"), (Pairs{{"channel name", "One"}, {"", ""}})) << word;
    }
}

}  // namespace
