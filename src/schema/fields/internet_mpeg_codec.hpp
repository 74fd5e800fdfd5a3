// The audio and the video group of an internet_mpeg output's encoder, in their order. The flat keys follow
// the encoder's prefix.
#pragma once

#include "schema/fields/stream_encoder.hpp"

namespace fields {

// Written and read under the same names.
inline constexpr auto ENC_AUDIO = [] {
    auto rows = audio_encoder("Sample rate to encode to (leave blank to use default or source rate)");
    for (Row& row : rows) {
        row.read.path = row.written.path;
        row.written = row.read;
    }
    return rows;
}();

inline constexpr Row ENC_VIDEO[] = {
    {"h.264 aud", TEXT, "H.264: whether to emit Access Unit Delimiters"},
    {"encoder", TEXT, "encoder to use (mpeg-1, mpeg-2, mpeg-4, h.264)", words("mpeg-1|mpeg-2|mpeg-4|h.264")},
    {"closed gop", TEXT,
        "If set, encode with closed GOPs (Group of Pictures). Else, open GOP encoding. Open GOP encoding allows one GOP to re-use frames from the previous GOP."},
    {"chroma format", TEXT, "If set, try to force a specific chroma format"},
    {"bitrate", TEXT, "Bitrate to encode to in bits/sec. 6000000 = 6mbit/sec"},
    {"min bitrate", TEXT, "If set, specifies lower bound of bitrate (VBR)"},
    {"max bitrate", TEXT, "If set, specifies upper bound of bitrate (VBR)"},
    {"bitrate tolerance", TEXT, "Bitrate tolerance"},
    {"gop size", TEXT, "GOP (Group of Pictures) size"},
    {"b frames", TEXT, "Number of B-frames"},
    {"enable", TEXT, "1", "Enable encoder"},
    {"debug status", TEXT, "Encoder debug status", STATUS},
    {"debug file", TEXT, "If set, write codec output to debug file on disk."},
    {"reference frames", TEXT, "Number of reference frames (H.264)"},
    {"name", TEXT, "Associate this encoder with a user-friendly name."},
    {"buffer size", TEXT, "Codec rate control buffer size"},
    {"motion estimation range", TEXT, "Control the distance that motion estimation will search"},
    {"temporal complexity masking", TEXT, "Temporal complexity masking (0.0-1.0)"},
    {"spatial complexity masking", TEXT, "Spatial complexity masking (0.0-1.0)"},
    {"constant bitrate per frame", TEXT, "If set, encode each frame as if constant bitrate per frame."},
    {"remove trailing zeros", TEXT, "If the codec inserts padding, remove it before transmission"},
    {"p masking", TEXT, "P-frame masking (0.0-1.0)"},
    {"noise reduction", TEXT, "Encoder noise reduction (0-9999)"},
    {"minimum quant", TEXT, "Minimum quantization level, if nonzero and set"},
    {"maximum quant", TEXT, "Maximum quantization level, if nonzero and set"},
    {"maximum threads", TEXT, "Maximum CPU threads to use for encoding, if nonzero and set"},
    {"eia-608 on p-frames", TEXT,
        "Transmit EIA-608 CC data on P-frames if set, I-frames only if not (default: no)"},
    {"enable eia-608", TEXT, "Embed EIA-608 CC data into MPEG-2 video as SCTE-20 CC packets"},
    {"enable eia-608 gop delay", TEXT,
        "If set, overall output is delayed by one GOP to properly encode EIA-608 closed captions that correspond to that video. Else, low delay is used, but captions are delayed by one GOP. Defaults to off."},
    {"enable cea-708", TEXT,
        "Embed EIA-708 CC data into MPEG-2 video as ATSC CC packets (including EIA-608 data)"},
    {"h.264 preset", TEXT, "veryfast", "H.264 encoder: preset"},
    {"h.264 profile", TEXT, "main", "H.264 encoder"},
    {"drop frame for bitrate limit", TEXT,
        "If set to 1, drop frames to maintain bitrate. If 0, never drop, If not set, automatically choose."},
    {"resize", TEXT,
        "If set, resize the video on encode to <width>x<height>. Else, use the source video resolution."},
    {"resize deinterlace", TEXT, "If set, resize using only one or the other field."},
    {"interlaced motion estimation", TEXT,
        "If set, use interlaced motion estimation. May reduce picture quality in some cases."},
    {"cpu threshhold", TEXT, "If set, control the amount of CPU load allowed."},
    {"h.264 b-slice multithreading", TEXT, "If set, use multithreading at the B-slice level."},
    {"enable h.264 nal hrd", TEXT, "Enable H.264 NAL hrd to signal CBR or VBR modes."},
    {"frame rate limit", TEXT, "Cap the frame rate at this amount (in Hz)"},
    {"", "", ENCODER_STATUS},
};

}  // namespace fields
