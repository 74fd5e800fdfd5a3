// The IPTV group and the ASI outputs of an internet_mpeg output's encoder, in their order. The flat keys
// follow the encoder's prefix.
#pragma once

#include "schema/field.hpp"

inline constexpr Field ENC_IPTV_FIELDS[] = {
    {"enable", ", iptv, enable", Coding::TEXT, "0",
        "Enable IPTV processing. This option and 'enable ip' (visible under Advanced mode) must be set for IP traffic to work."},
    {"enable_ip", ", iptv, enable ip", Coding::TEXT, "1", "Enable IPTV IP output"},
    {"multicast_loopback", ", iptv, multicast loopback", Coding::TEXT, "",
        "Make multicast output listenable from local loopback"},
    {"ip_protocol", ", iptv, ip protocol", Coding::TEXT, "rtp",
        "IP protocol to use (choose from 'udp' 'rtp' or 'none')"},
    {"ip_source", ", iptv, ip source", Coding::TEXT, "",
        "IP address of ethernet interface to transmit from, if set."},
    {"ip_target", ", iptv, ip target", Coding::TEXT, "239.1.1.1",
        "IP address to transmit to. Can be a unicast, broadcast, or multicast address."},
    {"ip_target_port", ", iptv, ip target port", Coding::TEXT, "1234", "IP port number to transmit to."},
    {"ip_ttl", ", iptv, ip ttl", Coding::TEXT, "1",
        "IP 'Time-to-live' value to apply to transmitted packets"},
    {"ip_xmit_buffer", ", iptv, ip xmit buffer", Coding::TEXT, "",
        "IP transmission buffer. For IP output set to at least 8MB."},
    {"mtu", ", iptv, mtu", Coding::TEXT, "", "MTU block size to transmit with, if set."},
    {"skip_null", ", iptv, skip null", Coding::TEXT, "0",
        "If set, skip transmitting NULL packets to reduce average bandwidth."},
    {"2nd_thread_output", ", iptv, 2nd thread output", Coding::TEXT, "1",
        "If set, use a separate thread to do IPTV output (to reduce PCR jitter)"},
    {"dont_fragment", ", iptv, dont fragment", Coding::TEXT, "1",
        "If set, IP packets carry the Dont Fragment bit to help ensure that the IP traffic is not fragmented by your router"},
    {"ip_priority", ", iptv, ip priority", Coding::TEXT, "1",
        "If set, IP packets are given a Type of Service field to indicate priority and preference for throughput, if supported by your network equipment"},
    {"ip_dont_route", ", iptv, ip dont route", Coding::TEXT, "0",
        "If set, IP packets are sent with instructions not to route"},
    {"active", ", iptv, active", Coding::TEXT, "",
        "Status display. Sent bytes indicate what has been sent to the network according to the operating system."},
    {"last_error", ", iptv, last error", Coding::TEXT, "", "Last error initializing the encoder"},
    {"last_notes", ", iptv, last notes", Coding::TEXT, "", "Last notes related to the encoder"},
};

// The un-numbered ASI output, which has no group of its own.
inline constexpr Field ENC_ASI_FIELDS[] = {
    {"asi__enable", ", asi, enable", Coding::TEXT, "0", "Enable ASI output"},
    {"asi__use_hw_clock", ", asi, use hw clock", Coding::TEXT, "1", "Use ASI hardware clock, if available"},
    {"asi__bitrate", ", asi, bitrate", Coding::TEXT, "",
        "If set, configure ASI output at this specific bitrate, else use TS mux bitrate."},
    {"asi__path", ", asi, path", Coding::TEXT, "", "Specifies path for ASI driver, if needed"},
    {"asi__index", ", asi, index", Coding::TEXT, "-1", "Specifies ASI device index"},
    {"asi__driver", ", asi, driver", Coding::TEXT, "",
        "Specifies ASI device driver. Valid files: 'file', 'cm_master_asi'. Use `zelm_dvbasi_list` to list all valid drivers."},
    {"asi__active", ", asi, active", Coding::TEXT, "", "Status display."},
    {"asi__last_error", ", asi, last error", Coding::TEXT, "", "Last error initializing the encoder"},
    {"asi__last_notes", ", asi, last notes", Coding::TEXT, "", "Last notes related to the encoder"},
};

// A numbered ASI output. The flat keys follow the output's prefix.
inline constexpr Field ASI_FIELDS[] = {
    {"enable", ", enable", Coding::TEXT, "0",
        "Enable ASI output. Settings for this output will appear in Advanced mode."},
    {"use_hw_clock", ", use hw clock", Coding::TEXT, "1", "Use ASI hardware clock, if available"},
    {"bitrate", ", bitrate", Coding::TEXT, "",
        "If set, configure ASI output at this specific bitrate, else use TS mux bitrate."},
    {"path", ", path", Coding::TEXT, "", "Specifies path for ASI driver, if needed"},
    {"index", ", index", Coding::TEXT, "-1", "Specifies ASI device index"},
    {"driver", ", driver", Coding::TEXT, "",
        "Specifies ASI device driver. Valid files: 'file', 'cm_master_asi'. Use `zelm_dvbasi_list` to list all valid drivers."},
    {"active", ", active", Coding::TEXT, "", "Status display."},
    {"last_error", ", last error", Coding::TEXT, "", "Last error initializing the encoder"},
    {"last_notes", ", last notes", Coding::TEXT, "", "Last notes related to the encoder"},
};
