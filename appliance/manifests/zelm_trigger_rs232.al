# What a trigger_rs232 input takes.

[port]
description=which serial port to watch (/dev/ttyS0, or /dev/ttyUSB0)
ui={"json_type": "string"}

[poll interval]
description=serial port poll interval (in milliseconds)
ui={"json_type": "string"}

[set dtr]
description=whether to set (1), clear (0), or leave alone the DTR modem control line
ui={"json_type": "string"}

[set rts]
description=whether to set (1), clear (0), or leave alone the RTS modem control line
ui={"json_type": "string"}

[load drivers]
default=1
description=whether to load RS-232 serial drivers at startup of this program
ui={"json_type": "string"}

[ri signal name]
description=signal name associated with RING status
ui={"json_type": "string"}

[ri signal invert]
description=invert meaning of RING status
ui={"json_type": "string"}

[cts signal name]
description=signal name associated with CTS (clear to send) status
ui={"json_type": "string"}

[cts signal invert]
description=invert meaning of CTS status
ui={"json_type": "string"}

[dsr signal name]
description=signal name associated with DSR (data set ready) status
ui={"json_type": "string"}

[dsr signal invert]
description=invert meaning of DSR status
ui={"json_type": "string"}

[dcd signal name]
description=signal name associated with DCD (data carrier detect) status
ui={"json_type": "string"}

[dcd signal invert]
description=invert meaning of DCD status
ui={"json_type": "string"}

[channels]
description=which channels to signal, separated by spaces (example: '1 2 3'), or leave blank to signal all channels
ui={"json_type": "string"}

[autostart]
description=Whether or not the item is automatically started
ui={"json_type": "string"}

[offline]
description=If set, prevent Tavorn from starting this item to keep it offline.
ui={"json_type": "string"}
