# What an alsa output takes, but for the audio normalizer.

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

[audio volume]
default=100
description=Audio volume percent (0..100)
ui={"json_type": "string"}

[alsa output]
default=default
description=ALSA output device ('default', 'hdmi', etc..)
ui={"json_type": "string"}

[audio rate]
description=Audio sample rate, in Hz, to render output at. Actual sample rate is constrained by sound card capabilities.
ui={"json_type": "string"}

[audio channels]
description=Audio channel count to render output at. Typical: 1 (mono), 2 (stereo), 6 (5.1 surround). Actual channel count is constrained by sound card capabilities.
ui={"json_type": "string"}

[allow channel mapping]
default=0
description=Allow ALSA to map and convert audio channels
ui={"json_type": "string"}

[allow resampling]
default=0
description=Allow ALSA to resample audio output
ui={"json_type": "string"}

[active]
letter=*
flags=s detail
description=Status display, whether or not the audio output is open
ui={"json_type": "string"}

[active mixer controls]
letter=*
flags=s detail
description=Status display, whether or not this output is able to use the hardware mixer
ui={"json_type": "string"}

[alsa buffer size]
letter=*
flags=s detail
description=Buffer size of the audio output
ui={"json_type": "string"}

[audio last error]
letter=*
flags=s detail
description=Last error encountered when trying to open the audio output
ui={"json_type": "string"}

[autostart item]
description=If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically.
ui={"json_type": "string"}

[audio last notes]
letter=*
flags=s detail nogui
description=Notes about the ALSA hardware and configuration.
ui={"json_type": "string"}
