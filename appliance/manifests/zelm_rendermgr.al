# What a channel takes, but for its regions, which are added when this is built.
# zelm-manifest(5) tells the format.

[channel name]
description=if set, gives the channel a name instead of "channel X"
ui={"json_type": "string"}

[autostart]
default=0
description=Whether or not the item is automatically started
ui={"json_type": "boolean"}

[expiration delay]
default=0.5s
description=How long to wait before an expired item is dropped, as a count with "s" for seconds or "f" for frames
ui={"json_type": "object"}

[lock memory]
default=0
description=Whether to lock memory to prevent swapping (for performance)
ui={"json_type": "boolean"}

[alt loop]
default=0
description=Loop the item set to Play Now
ui={"json_type": "boolean"}

[pause resume rewind]
default=0
description=How many seconds to rewind after resuming from pause
ui={"json_type": "integer"}

[preview]
default=0
description=Channel is used to preview content, not intended for broadcast
ui={"json_type": "boolean"}

[catch up speed]
default=37
description=Catch-up rendering speed (percentage).
ui={"json_type": "number"}

[realtime process]
default=1
description=Whether to run as a realtime process (recommended)
ui={"json_type": "boolean"}

[autorestart]
default=0
description=If set, start the channel through a management tool that auto-restarts it on failure
ui={"json_type": "boolean"}

[schedule export]
default=0
description=Enable exporting schedule contents for output drivers
ui={"json_type": "boolean"}

[system delay]
default=1s
description=How far the channel runs behind, as a count with "s" for seconds or "f" for frames
ui={"json_type": "object"}

[match source]
default=0
description=If set, auto-set rate, width, height, and audio format to match the item assigned to the main region (if possible)
ui={"json_type": "boolean"}

[match audio upconvert]
default=1
description=If set, match source but only act if the audio channel count increases
ui={"json_type": "boolean"}

[match source with play now]
default=0
description=In addition to the main region, also match items added via 'Play Now'
ui={"json_type": "boolean"}

[reporting log]
default=1
description=Whether to send JSON events to the reporting service
ui={"json_type": "boolean"}

[reporting interval]
default=5
description=How frequently to send updates to the reporting service in seconds
ui={"json_type": "integer"}

[reporting mode]
description=Reporting mode. As reporting transitions from one schema to another this indicates which schema
ui={"json_type": "string"}

[reporting]
default=/var/run/reporting-json
description=Where to send reporting event data
ui={"json_type": "array"}

[last report]
letter=*
flags=s detail
description=Last reporting event logged
ui={"json_type": "string"}

[active]
letter=*
flags=s detail
description=Status display, whether or not the channel is active
ui={"json_type": "string"}

[active item]
letter=*
flags=s detail
description=Status display, of the item playing on the main layer. This will match the channel if a playlist or schedule
ui={"json_type": "string"}

[active source]
letter=*
flags=s detail
description=Status display, of the item playing on the main layer, or the main item within the item if a playlist or schedule
ui={"json_type": "string"}

[burn in]
description=Render debug info into the frame
ui={"json_type": "string"}

[eia-608 caption status]
letter=*
flags=s detail
description=Caption data coming out of this channel, for debugging purposes
ui={"json_type": "string"}

[cea-708 caption status]
letter=*
flags=s detail
description=Caption data coming out of this channel, for debugging purposes
ui={"json_type": "string"}

[scte-20 status]
letter=*
flags=s detail
description=Caption data coming out of this channel, for debugging purposes
ui={"json_type": "string"}

[scte-35 status]
letter=*
flags=s detail
description=SCTE-35 data coming out of this channel, for debugging purposes.
ui={"json_type": "string"}

[realtime status]
letter=*
flags=s detail
description=Realtime item status
ui={"json_type": "string"}

[pid status]
letter=*
flags=s detail
description=PID information (i.e. IP source)
ui={"json_type": "string"}

[source gop status]
letter=*
flags=s detail
description=MPEG-2 GOP/temporal status from source
ui={"json_type": "string"}

[source timestamp status]
letter=*
flags=s detail
description=MPEG-2 SCR, PTS, and DTS status from source
ui={"json_type": "string"}

[audio channels]
default=2
description=Audio channel count. Typical: 1 (mono), 2 (stereo), 6 (5.1 surround), 8 (7.1 surround)
ui={"json_type": "integer"}

[audio rate]
default=48000
description=Audio sample rate, in Hz
ui={"json_type": "integer"}

[fetch audio with extra sample]
default=0
description=Fetch an extra sample in each request to avoid some cases of minor clicking
ui={"json_type": "boolean"}

[audio meter]
letter=*
flags=s detail
description=Level of each audio channel in dBFS
ui={"json_type": "array"}

[ducking test]
default=0
description=Test audio ducking (for EAS or other needs)
ui={"json_type": "boolean"}

[ducking time interval]
default=0.3
description=Time period to transition during audio ducking
ui={"json_type": "number"}

[ducking audio level]
default=-24
description=How far to duck the audio
ui={"json_type": "number"}

[audio normalizer enable]
default=1
description=Enable audio normalization
ui={"json_type": "boolean"}

[audio normalizer attack]
default=1
description=Normalizer attack in ms (recommended: 1ms)
ui={"json_type": "number"}

[audio normalizer decay]
default=100
description=Normalizer decay in ms (recommended: 1000ms)
ui={"json_type": "number"}

[audio normalizer bass filter]
description=Highpass filter to remove bass from audio normalizer stage, in Hz
ui={"json_type": "integer"}

[audio normalizer treble filter]
description=Lowpass filter to remove treble from audio normalizer stage, in Hz
ui={"json_type": "integer"}

[audio normalizer sd-mode]
default=0
description=Enable SD normalization mode
ui={"json_type": "boolean"}

[audio normalizer map mode]
default=linear
description=Set audio normalization mapping mode. Decibel (log) mode can provide higher quality at the cost of some additional CPU load
ui={"json_type": "object"}

[audio normalizer minimum level]
default=-24
description=Minimum level in dBFS (0=full volume, -6=6dBFS below full). Audio below this level is not amplified
ui={"json_type": "number"}

[audio normalizer lower level]
default=-6
description=Lower level in dBFS. Audio at or above minimum level is amplified to this level
ui={"json_type": "number"}

[audio normalizer upper level]
default=-3
description=Upper level in dBFS. Audio above this level is attenuated down to this level
ui={"json_type": "number"}

[audio normalizer hard limit level]
description=Hard limit in dBFS. Audio will not exceed this level if normalization is enabled
ui={"json_type": "number"}

[audio normalizer upper level 2=]
default=-3
description=Upper level in dBFS. Audio above this level is attenuated down to this level
ui={"json_type": "number"}

[audio normalizer hard limit level 2=]
description=Hard limit in dBFS. Audio will not exceed this level if normalization is enabled
ui={"json_type": "number"}

[video width]
default=720
description=Width of video frame, in pixels. Note that the frame is stretched to fit the aspect ratio
ui={"json_type": "integer"}

[video height]
default=480
description=Height of video frame, in pixels.
ui={"json_type": "integer"}

[video aspect ratio]
default=4:3
description=Video frame display aspect ratio. Typical: '4:3' or '16:9'
ui={"json_type": "object"}

[video rate]
default=30000:1001li bff
description=Video frame/field rate. Typical: '30000/1001i bff' for 29.97fps interlaced, '60000/1001p' for 59.94fps progressive, etc.
ui={"json_type": "object"}

[video chroma format]
default=4:2:0
description=Chroma format and subsampling on output. Normally 4:2:0, for higher chroma detail use 4:2:2 or 4:4:4
ui={"json_type": "string"}

[horizontal soften]
default=0
description=How much to soften the picture horizontally. Set this option if high resolution is desired but the signal is compressed heavily for broadcast
ui={"json_type": "integer"}

[horizontal soften passes]
default=1
description=How many passes to soften the picture horizontally
ui={"json_type": "integer"}

[vertical soften]
default=0
description=How much to soften the picture vertically. Set this option if high resolution is desired but the signal is compressed heavily for broadcast
ui={"json_type": "integer"}

[vertical soften passes]
default=1
description=How many passes to soften the picture vertically
ui={"json_type": "integer"}

[eia-608 render captions]
default=None
description=If set, render EIA-608 captions to the output (making them open captions)
ui={"json_type": "string"}

[eia-608 to cea-708 y-adjust]
default=0
description=608-to-708 vertical position adjustment from center, 1/5th character cell units according to CEA-708-E
ui={"json_type": "integer"}

[eia-608 to cea-708 x-adjust]
default=0
description=608-to-708 horizontal position adjustment from center, 1/5th character cell units according to CEA-708-E
ui={"json_type": "integer"}

[eia-608 to cea-708 conversion]
default=-1
description=Enable 608-to-708 conversion. Conversion will not occur if the source already provides its own 708 captions
ui={"json_type": "boolean"}

[main layer]
default=item
description=The currently-active main layer
ui={"json_type": "string"}

[background music default policy]
default=if-no-audio
description=The global background music region
ui={"json_type": "string"}

