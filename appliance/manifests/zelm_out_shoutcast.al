# What a shoutcast output takes, but for the audio normalizer and the encoders.

[autostart]
description=Whether or not the item is automatically started
ui={"json_type": "string"}

[autorestart]
default=0
description=If set, start the item through a management tool that auto-restarts the item on failure
ui={"json_type": "boolean"}

[driver]
description=Driver to run output with
ui={"json_type": "string"}

[item]
description=Channel path to feed from
ui={"json_type": "string"}

[audio rate]
description=Audio sample rate, in Hz, to render audio to. If not set, sample rate matches the channel this pulls from.
ui={"json_type": "string"}

[audio channels]
description=Audio channel count. Typical: 1 (mono), 2 (stereo), 6 (5.1 surround). If not set, channel format matches the channel this pulls from.
ui={"json_type": "string"}

[audio volume]
default=100
description=Audio volume percent (0..100)
ui={"json_type": "string"}

[active]
letter=*
flags=s detail
description=Status display, whether or not the system is active. Encoders have their own status.
ui={"json_type": "boolean"}

[autostart item]
description=If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically.
ui={"json_type": "string"}
