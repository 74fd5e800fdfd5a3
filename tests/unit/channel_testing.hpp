// The document of a channel without settings.
#pragma once

#include "unit/schema_testing.hpp"

inline constexpr char EMPTY_REGION[] = R"({
    "enable": false,
    "media": {"path": [""], "loop": false, "mimeType": "", "leafPath": [""], "leafMimeType": "",
        "context": null, "played": null, "state": ""},
    "audio": {"enable": false, "volume": 0, "force": false, "rendering": false},
    "video": {"enable": false,
        "geometry": {"size": {"width": 0, "height": 0}, "position": {"x": 0, "y": 0}},
        "force": false, "align": {"vertical": "center", "horizontal": "center"}, "rendering": false}})";

inline constexpr char EMPTY_DOCUMENT[] = R"({
    "name": "",
    "behavior": {"autostart": false, "expirationDelay": {}, "lockMemory": false, "loopPlayNow": false,
        "pauseCorrection": 0, "preview": false, "recoverySpeed": null, "realtime": false, "restart": false,
        "scheduleExport": false, "systemDelay": {},
        "match": {"enable": false, "upconvertAudio": false, "playNow": false}},
    "reporting": {"enable": false, "interval": 0, "service": null, "mode": "", "lastReport": ""},
    "audio": {"channels": 0, "rate": 0, "fetchExtraSample": false, "meter": [],
        "ducking": {"test": false, "interval": 0, "level": 0},
        "normalizer": {"enable": false, "attack": 0, "decay": 0,
            "passes": [{"maximum": null}, {"maximum": null}],
            "filters": {"bass": null, "treble": null, "sdmode": false, "mapping": {"mode": "linear"}}}},
    "video": {"size": {"width": 0, "height": 0}, "aspect": {}, "rate": null, "subsampling": "",
        "soften": {"horizontal": {"distance": 0, "passes": 0}, "vertical": {"distance": 0, "passes": 0}}},
    "caption": {"renderEia608": null,
        "conversion": {"verticalAdjustment": 0, "horizontalAdjustment": 0, "enable": true, "force": true}},
    "debug": {"active": "", "activeItem": "", "activeSource": "",
        "captionStatus": {"eia608": "", "cea708": "", "scte20": ""}, "cueStatus": {"scte35": ""},
        "realtimeStatus": "", "pidStatus": "", "sourceGopStatus": "", "sourceTimestampStatus": ""},
    "regions": {"main": {"kind": "global", "index": ""}, "item": REGION, "urgent": REGION, "music": MUSIC,
        "alerts": {"text": REGION, "media": REGION},
        "global": [REGION, REGION, REGION, REGION, REGION, REGION, REGION, REGION]}})";

inline json11::Json empty_channel_document()
{
    std::string music = EMPTY_REGION;
    music.insert(1, R"("policy": "",)");
    return parsed(replaced(replaced(EMPTY_DOCUMENT, "REGION", EMPTY_REGION), "MUSIC", music));
}
