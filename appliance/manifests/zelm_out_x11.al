# What an x11 output takes. zelm-manifest(5) tells the format.

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

[title]
default=Tavorn 4 X11/XVideo output
description=X11 Window title
ui={"json_type": "string"}

[always on top]
default=0
description=Keep the window on top of other windows at all times
ui={"json_type": "boolean"}

[modechange]
default=0
description=Automatically change X video mode to fit video
ui={"json_type": "boolean"}

[always resize window]
default=0
description=If set, window will always resize to show the video. If not set, window will not resize and video will fit within it
ui={"json_type": "boolean"}

[active]
letter=*
flags=s detail
description=Status, whether X11 window is active
ui={"json_type": "boolean"}

[xwindow]
letter=*
flags=s detail
description=Status, X window ID
ui={"json_type": "integer"}

[using x11 server]
letter=*
flags=s detail
description=Status, what X11 server is being used
ui={"json_type": "string"}

[disable xv]
default=1
description=Use Xv video overlay
ui={"json_type": "boolean"}

[using xv]
letter=*
flags=s detail
description=Status, whether or not using XV (XVideo) extensions
ui={"json_type": "boolean"}

[disable shm]
default=1
description=Use SHM extension with X11
ui={"json_type": "boolean"}

[using shm]
letter=*
flags=s detail
description=Status, whether or not using SHM (shared memory mapping)
ui={"json_type": "boolean"}

[fullscreen]
default=0
description=Automatically make display window fullscreen. Hit ESC at any time to leave fullscreen mode.
ui={"json_type": "boolean"}

[using fullscreen]
letter=*
flags=s detail
description=Status, whether the window is fullscreen
ui={"json_type": "boolean"}

[fullscreen x]
default=0
description=When fullscreen, position window at X-coordinate
ui={"json_type": "integer"}

[fullscreen y]
default=0
description=When fullscreen, position window at Y-coordinate
ui={"json_type": "integer"}

[disable stretching]
default=1
description=Stretch frame to match aspect ratio
ui={"json_type": "boolean"}

[frame rate reduce]
default=0
description=If set, reduce frame rate down to the given rate. For use with slow X11 displays.
ui={"json_type": "integer"}

[last error]
letter=*
flags=s detail
description=Last error encountered when trying to open the X11 window
ui={"json_type": "string"}

[last notes]
letter=*
flags=s detail nogui
description=Informational notes about opening the X11 window, for debugging purposes.
ui={"json_type": "string"}
