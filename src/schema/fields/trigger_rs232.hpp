// The members of an RS-232 trigger's document, in their order. There is no driver among them: that of an
// input stands in the marker line of its settings file.
#pragma once

#include "schema/row.hpp"

namespace fields {

using enum Coding;

inline constexpr Row TRIGGER_RS232[] = {
    {"port", "port", NULLABLE_TEXT, "", "which serial port to watch (/dev/ttyS0, or /dev/ttyUSB0)"},
    {"poll_interval", "poll interval", NULLABLE_TEXT, "", "serial port poll interval (in milliseconds)"},
    {"set_dtr", "set dtr", NULLABLE_TEXT, "",
        "whether to set (1), clear (0), or leave alone the DTR modem control line"},
    {"set_rts", "set rts", NULLABLE_TEXT, "",
        "whether to set (1), clear (0), or leave alone the RTS modem control line"},
    {"load_drivers", "load drivers", TEXT, "1",
        "whether to load RS-232 serial drivers at startup of this program"},
    {"ri_signal_name", "ri signal name", NULLABLE_TEXT, "", "signal name associated with RING status"},
    {"ri_signal_invert", "ri signal invert", NULLABLE_TEXT, "", "invert meaning of RING status"},
    {"cts_signal_name", "cts signal name", NULLABLE_TEXT, "",
        "signal name associated with CTS (clear to send) status"},
    {"cts_signal_invert", "cts signal invert", NULLABLE_TEXT, "", "invert meaning of CTS status"},
    {"dsr_signal_name", "dsr signal name", NULLABLE_TEXT, "",
        "signal name associated with DSR (data set ready) status"},
    {"dsr_signal_invert", "dsr signal invert", NULLABLE_TEXT, "", "invert meaning of DSR status"},
    {"dcd_signal_name", "dcd signal name", NULLABLE_TEXT, "",
        "signal name associated with DCD (data carrier detect) status"},
    {"dcd_signal_invert", "dcd signal invert", NULLABLE_TEXT, "", "invert meaning of DCD status"},
    {"channels", "channels", NULLABLE_TEXT, "",
        "which channels to signal, separated by spaces (example: '1 2 3'), or leave blank to signal all channels"},
    {"autostart", "autostart", NULLABLE_TEXT, "", "Whether or not the item is automatically started"},
    {"offline", "offline", NULLABLE_TEXT, "",
        "If set, prevent Tavorn from starting this item to keep it offline."},
};

}  // namespace fields
