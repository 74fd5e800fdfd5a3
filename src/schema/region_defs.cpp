#include "schema/region_defs.hpp"

using json11::Json;

// The renderer has two keys for the audio, what is wanted and what it does, and a single one for the video.
Document region_key_map(const std::string& name)
{
    return {
        {"enable", name + " enable"},
        {"media",
            Json::object{
                {"path", name},
                {"loop", name + " loop"},
                {"mimeType", name + " file type"},
                {"leafPath", name + " lowest level"},
                {"leafMimeType", name + " lowest level file type"},
                {"context", name + " context id"},
                {"played", name + " playback"},
                {"state", name + " state"},
            }},
        {"audio",
            Json::object{
                {"enable", name + " audio"},
                {"volume", name + " audio volume"},
                {"force", name + " force audio"},
                {"rendering", name + " audio enabled"},
            }},
        {"video",
            Json::object{
                {"enable", name + " video enabled"},
                {"geometry",
                    Json::object{
                        {"size", name + " size"},
                        {"position", name + " position"},
                    }},
                {"force", name + " force video"},
                {"align", name + " align"},
                {"rendering", name + " video enabled"},
            }},
    };
}
