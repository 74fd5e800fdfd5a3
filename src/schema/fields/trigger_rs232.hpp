// The members of an RS-232 trigger's document, in their order. There is no driver among them: that of an
// input stands in the marker line of its settings file.
#pragma once

#include "schema/row.hpp"

namespace fields {

inline constexpr Row TRIGGER_RS232[] = {
    {"port", NULLABLE_TEXT, "which serial port to watch (/dev/ttyS0, or /dev/ttyUSB0)"},
    {"poll interval", NULLABLE_TEXT, "serial port poll interval (in milliseconds)"},
    {"set dtr", NULLABLE_TEXT, "whether to set (1), clear (0), or leave alone the DTR modem control line"},
    {"set rts", NULLABLE_TEXT, "whether to set (1), clear (0), or leave alone the RTS modem control line"},
    {"load drivers", TEXT, "1", "whether to load RS-232 serial drivers at startup of this program"},
    {"ri signal name", NULLABLE_TEXT, "signal name associated with RING status"},
    {"ri signal invert", NULLABLE_TEXT, "invert meaning of RING status"},
    {"cts signal name", NULLABLE_TEXT, "signal name associated with CTS (clear to send) status"},
    {"cts signal invert", NULLABLE_TEXT, "invert meaning of CTS status"},
    {"dsr signal name", NULLABLE_TEXT, "signal name associated with DSR (data set ready) status"},
    {"dsr signal invert", NULLABLE_TEXT, "invert meaning of DSR status"},
    {"dcd signal name", NULLABLE_TEXT, "signal name associated with DCD (data carrier detect) status"},
    {"dcd signal invert", NULLABLE_TEXT, "invert meaning of DCD status"},
    {"channels", NULLABLE_TEXT,
        "which channels to signal, separated by spaces (example: '1 2 3'), or leave blank to signal all channels"},
    {"autostart", NULLABLE_TEXT, "Whether or not the item is automatically started"},
    {"offline", NULLABLE_TEXT, "If set, prevent Tavorn from starting this item to keep it offline."},
};

}  // namespace fields
