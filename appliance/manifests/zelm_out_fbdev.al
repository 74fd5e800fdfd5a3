# What an fbdev output takes.

[autostart]
description=Whether or not the item is automatically started
ui={"json_type": "string"}

[autorestart]
default=0
description=If set, start the item through a management tool that auto-restarts the item on failure
ui={"json_type": "boolean"}

[item]
description=Channel path to feed from
ui={"json_type": "string"}

[force width]
description=Force video output resolution to width
ui={"json_type": "string"}

[force height]
description=Force video output resolution to height
ui={"json_type": "string"}

[device]
description=Specify which device (/dev/fb<N>) or PCI card (pci:AAAA:BB:CC.D) to use
ui={"json_type": "string"}

[output format]
description=Force video output to use specific pixel format: rgb555 bgr555 rgb565 bgr565 rgb888 bgr888
ui={"json_type": "string"}

[refresh rate]
description=Force video output to specific refresh rate
ui={"json_type": "string"}

[take framebuffer console]
default=-1
description=If framebuffer is used by Linux console, take over the console as well.
ui={"json_type": "string"}

[active]
letter=*
flags=s detail
description=Status display, whether or not the framebuffer output is open
ui={"json_type": "string"}

[last notes]
letter=*
flags=s detail nogui
description=Informational notes about opening the framebuffer, for debugging purposes.
ui={"json_type": "string"}

[last error]
letter=*
flags=s detail
description=Last error encountered when trying to open the framebuffer
ui={"json_type": "string"}

[using device]
letter=*
flags=s detail
description=Framebuffer device currently in use
ui={"json_type": "string"}

[using fbcon]
letter=*
flags=s detail
description=Whether or not the framebuffer console was taken over for the output's use.
ui={"json_type": "string"}

[autostart item]
description=If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically.
ui={"json_type": "string"}
