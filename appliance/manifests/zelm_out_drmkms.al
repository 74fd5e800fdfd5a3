# What a drmkms output takes.

[item]
description=Channel path to feed from
ui={"json_type": "array"}

[autostart]
default=0
description=Whether or not the item is automatically started
ui={"json_type": "boolean"}

[autorestart]
default=0
description=If set, start the item through a management tool that auto-restarts the item on failure
ui={"json_type": "boolean"}

[autostart item]
default=0
description=If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically.
ui={"json_type": "boolean"}

[active]
letter=*
flags=s detail
description=Status
ui={"json_type": "string"}

[audio]
default=on
description=Audio control for the output, if applicable. Set to 'on' to allow audio over HDMI and DVI-D connections.
ui={"json_type": "string"}

[restore on item disconnect]
default=0
description=If enabled, the output driver will restore the output to it's former state when the item it's connected to shuts down.
ui={"json_type": "boolean"}

[backlight level]
description=If display has a backlight, set it to this level
ui={"json_type": "integer"}

[refresh rate]
description=Force refresh rate to specified Hz
ui={"json_type": "number"}

[match known]
default=1
description=Try to match modes returned from the monitor via EDID and use them
ui={"json_type": "boolean"}

[output format]
default=rgb888
description=Force pixel format
ui={"json_type": "string"}

[device]
default=0
description=What device to use, either by index (/dev/dri/card<N>) or by PCI device (pci:AAAA:BB:CC.D)
ui={"json_type": "string"}

[using device]
letter=*
flags=s detail
description=Which device is in use now
ui={"json_type": "string"}

[connector]
default=hdmi
description=What kind of connector to use on the card
ui={"json_type": "string"}

[connector index]
description=Among multiple connectors of the same type, which connector to use
ui={"json_type": "integer"}

[skip unconnected]
default=1
description=When counting connectors, skip connectors that do not have anything plugged in to them.
ui={"json_type": "boolean"}

[drm master]
default=0
description=Operate as DRM/KMS master. You need to clear this option if you don't want the driver to coexist with X-Windows.
ui={"json_type": "boolean"}

[using drm as master]
letter=*
flags=s detail
description=Whether using the device as DRM master
ui={"json_type": "boolean"}

[fbcon override]
default=0
description=Take over the console if fbdev + fbcon occupy that output. You will lose access to the console on that output until this output is stopped.
ui={"json_type": "boolean"}

[using fbcon]
letter=*
flags=s detail
description=Whether fbcon override is active
ui={"json_type": "boolean"}

[x override]
default=1
description=If set, driver will not attempt video output while X-Windows is running.
ui={"json_type": "boolean"}

[use page flipping]
default=1
description=Use hardware page flipping, if available. Enabling this option will eliminate tearlines and judder, if supported by the hardware.
ui={"json_type": "boolean"}

[using page flipping]
letter=*
flags=s detail
description=Whether the driver is using page flipping
ui={"json_type": "boolean"}

[force width]
description=Force display width
ui={"json_type": "integer"}

[force height]
description=Force display height
ui={"json_type": "integer"}

[interlaced]
default=0
description=Try to enable interlaced video output.
ui={"json_type": "boolean"}

[scale mode]
description=If display has a scalar (Laptop LVDS panels) set the scale mode
ui={"json_type": "string"}

[last error]
letter=*
flags=s detail
description=Last error encountered when trying to open the device
ui={"json_type": "string"}

[last notes]
letter=*
flags=s detail nogui
description=Informational notes about opening the device
ui={"json_type": "string"}
