# What an oss output takes, but for the audio normalizer.

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

[audio rate]
description=Audio sample rate, in Hz, to render output at. Actual sample rate is constrained by sound card capabilities.
ui={"json_type": "string"}

[audio channels]
description=Audio channel count to render output at. Typical: 1 (mono), 2 (stereo), 6 (5.1 surround). Actual channel count is constrained by sound card capabilities.
ui={"json_type": "string"}

[audio last error]
letter=*
flags=s detail
description=Last error encountered when trying to open the audio output
ui={"json_type": "string"}

[autostart item]
description=If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically.
ui={"json_type": "string"}

[oss output]
description=OSS output device index
ui={"json_type": "string"}

[active]
letter=*
flags=s detail
description=Status, whether or not the output to the sound card is active
ui={"json_type": "string"}

[oss buffer size]
letter=*
flags=s detail
description=Status, buffer size to the sound card
ui={"json_type": "string"}
