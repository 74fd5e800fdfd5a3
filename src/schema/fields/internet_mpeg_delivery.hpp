// The IPTV group and the ASI outputs of an internet_mpeg output's encoder, in their order. The flat keys
// follow the encoder's prefix.
#pragma once

#include "schema/fields/stream_encoder.hpp"

namespace fields {

inline constexpr Row ENC_IPTV[] = {
    {"enable", TEXT, "0",
        "Enable IPTV processing. This option and 'enable ip' (visible under Advanced mode) must be set for IP traffic to work."},
    {"enable ip", TEXT, "1", "Enable IPTV IP output"},
    {"multicast loopback", TEXT, "Make multicast output listenable from local loopback"},
    {"ip protocol", TEXT, "rtp", "IP protocol to use (choose from 'udp' 'rtp' or 'none')",
        words("udp|rtp|none")},
    {"ip source", TEXT, "IP address of ethernet interface to transmit from, if set."},
    {"ip target", TEXT, "239.1.1.1",
        "IP address to transmit to. Can be a unicast, broadcast, or multicast address."},
    {"ip target port", TEXT, "1234", "IP port number to transmit to."},
    {"ip ttl", TEXT, "1", "IP 'Time-to-live' value to apply to transmitted packets"},
    {"ip xmit buffer", TEXT, "IP transmission buffer. For IP output set to at least 8MB."},
    {"mtu", TEXT, "MTU block size to transmit with, if set."},
    {"skip null", TEXT, "0", "If set, skip transmitting NULL packets to reduce average bandwidth."},
    {"2nd thread output", TEXT, "1",
        "If set, use a separate thread to do IPTV output (to reduce PCR jitter)"},
    {"dont fragment", TEXT, "1",
        "If set, IP packets carry the Dont Fragment bit to help ensure that the IP traffic is not fragmented by your router"},
    {"ip priority", TEXT, "1",
        "If set, IP packets are given a Type of Service field to indicate priority and preference for throughput, if supported by your network equipment"},
    {"ip dont route", TEXT, "0", "If set, IP packets are sent with instructions not to route"},
    {"active", TEXT,
        "Status display. Sent bytes indicate what has been sent to the network according to the operating system.",
        STATUS},
    {"", "", LAST_WORDS},
};

// A numbered ASI output. The flat keys follow the output's prefix.
inline constexpr Row NUMBERED_ASI[] = {
    {"enable", TEXT, "0", "Enable ASI output. Settings for this output will appear in Advanced mode."},
    {"use hw clock", TEXT, "1", "Use ASI hardware clock, if available"},
    {"bitrate", TEXT, "If set, configure ASI output at this specific bitrate, else use TS mux bitrate."},
    {"path", TEXT, "Specifies path for ASI driver, if needed"},
    {"index", TEXT, "-1", "Specifies ASI device index"},
    {"driver", TEXT,
        "Specifies ASI device driver. Valid files: 'file', 'cm_master_asi'. Use `zelm_dvbasi_list` to list all valid drivers.",
        words("file|cm_master_asi")},
    {"active", TEXT, "Status display.", STATUS},
    LAST_WORDS[0],
    LAST_WORDS[1],
};

// The un-numbered ASI output, which has no group of its own.
inline constexpr auto ENC_ASI = [] {
    constexpr std::string_view KEYS[] = {"asi, enable", "asi, use hw clock", "asi, bitrate", "asi, path",
        "asi, index", "asi, driver", "asi, active", "asi, last error", "asi, last notes"};
    auto rows = std::to_array(NUMBERED_ASI);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].read.key = KEYS[i];
        rows[i].written = rows[i].read;
    }
    rows[0].description = "Enable ASI output";
    return rows;
}();

}  // namespace fields
