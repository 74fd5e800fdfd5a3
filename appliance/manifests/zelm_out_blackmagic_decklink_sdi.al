# What a blackmagic_decklink_sdi output takes, but for the audio normalizer.

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
description=Audio volume level on output. NOTE: Black Magic Decklink outputs are LOUD, so 100% actually means 25% of the card's max volume
ui={"json_type": "string"}

[audio bits]
description=Bit depth of audio: 16 or 32
ui={"json_type": "string"}

[audio channels]
description=Number of channels to send to Black Magic SDI
ui={"json_type": "string"}

[audio convert channels]
description=Audio channel layout to convert to before transmitting. The converted audio becomes the source channels to map by. Set this to 2 if your channel is 5.1 surround and you want the SDI output to contain only the stereo downmix.
ui={"json_type": "string"}

[audio out channel 01]
description=Source channel to map to SDI channel 1
ui={"json_type": "string"}

[audio out channel 02]
description=Source channel to map to SDI channel 2
ui={"json_type": "string"}

[audio out channel 03]
description=Source channel to map to SDI channel 3
ui={"json_type": "string"}

[audio out channel 04]
description=Source channel to map to SDI channel 4
ui={"json_type": "string"}

[audio out channel 05]
description=Source channel to map to SDI channel 5
ui={"json_type": "string"}

[audio out channel 06]
description=Source channel to map to SDI channel 6
ui={"json_type": "string"}

[audio out channel 07]
description=Source channel to map to SDI channel 7
ui={"json_type": "string"}

[audio out channel 08]
description=Source channel to map to SDI channel 8
ui={"json_type": "string"}

[audio out channel 09]
description=Source channel to map to SDI channel 9
ui={"json_type": "string"}

[audio out channel 10]
description=Source channel to map to SDI channel 10
ui={"json_type": "string"}

[audio out channel 11]
description=Source channel to map to SDI channel 11
ui={"json_type": "string"}

[audio out channel 12]
description=Source channel to map to SDI channel 12
ui={"json_type": "string"}

[audio out channel 13]
description=Source channel to map to SDI channel 13
ui={"json_type": "string"}

[audio out channel 14]
description=Source channel to map to SDI channel 14
ui={"json_type": "string"}

[audio out channel 15]
description=Source channel to map to SDI channel 15
ui={"json_type": "string"}

[audio out channel 16]
description=Source channel to map to SDI channel 16
ui={"json_type": "string"}

[card index]
default=-1
description=Card index. 0-based, if set.
ui={"json_type": "string"}

[enable audio]
default=1
description=Whether or note to output audio
ui={"json_type": "boolean"}

[eia-608 line 21 first/odd]
description=Enable NTSC Line 21 closed caption output, odd field (CC1/CC2)
ui={"json_type": "string"}

[eia-608 line 21 second/even]
description=Enable NTSC Line 21 closed caption output, even field (CC3/CC4)
ui={"json_type": "string"}

[eia-608 line 21 first/odd use vanc]
description=Use vertical ancillary interface to draw line 21
ui={"json_type": "string"}

[eia-608 line 21 second/even use vanc]
description=Use vertical ancillary interface to draw line 21
ui={"json_type": "string"}

[eia-608 line 21 first/odd scanline]
description=Render Line 21 closed captioning (CC1/CC2) on specified scanline [NTSC 480i output only]
ui={"json_type": "string"}

[eia-608 line 21 second/even scanline]
description=Render Line 21 closed captioning (CC3/CC4) on specified scanline [NTSC 480i output only]
ui={"json_type": "string"}

[force width]
description=Force output to use a specific width
ui={"json_type": "string"}

[force height]
description=Force output to use a specific height
ui={"json_type": "string"}

[force fps]
description=Force output to use a specific framerate
ui={"json_type": "string"}

[10-bit yuv]
description=Enable 10-bit HD-SDI output. 1=force on  0=force off  -1/default=auto
ui={"json_type": "string"}

[vanc test]
description=Generate test pattern in the SDI/HD-SDI vertical ancillary area (default off)
ui={"json_type": "boolean"}

[enable vanc]
description=Enable writing to the vertical ancillary area. Must be enabled for caption data to work.
ui={"json_type": "boolean"}

[vanc first line]
description=If set, override the first valid vertical ancillary line number (first field)
ui={"json_type": "string"}

[vanc first line 2nd field]
description=If set, override the first valid vertical ancillary line number (second field)
ui={"json_type": "boolean"}

[vanc data packet format]
description=If set, determine what format vertical ancillary data packets are encoded. Valid values are none, auto, composite, component. Default is component. For more information read SMPTE S291m-1998.
ui={"json_type": "string"}

[enable vanc eia-608]
description=Write EIA-608 caption data to the vertical ancillary area.
ui={"json_type": "boolean"}

[enable vanc cea-708]
description=Write CEA-708 caption data to the vertical ancillary area.
ui={"json_type": "boolean"}

[vanc eia-608 split across fields]
description=If set, and HD-SDI output is interlaced, split the EIA-608 caption data across two VANC packets, one per field. Default disabled.
ui={"json_type": "string"}

[vanc cea-708 split across fields]
description=If set, and HD-SDI output is interlaced, split the CEA-708 caption data across two VANC packets, one per field. Default disabled.
ui={"json_type": "string"}

[vanc one packet per line]
description=If set, restrict encoding to one VANC packet per scanline. Default enabled. If disabled, some equipment may fail to handle all ancillary data.
ui={"json_type": "string"}

[resize video]
description=If set, video is resized before output. This can be used to emit your HD channel as SD in multiple-output scenarios.
ui={"json_type": "string"}

[resize video to]
description=If set, what video resolution to resize to (width x height format)
ui={"json_type": "string"}

[vanc cea-708 encode ideal framerate]
description=If set, CEA-708 caption description packets will always encode idealistic frame rates i.e. for 29.97fps video report 30fps. May be required for lame broadcast equipment.
ui={"json_type": "boolean"}

[max video delay]
description=If set, maximum video frame delay
ui={"json_type": "string"}

[no sdk disablevideooutput]
description=If set, whether or not to skip DisableVideoOutput() on shutdown. If this driver hangs on shutdown or exits suddenly after being unresponsive, set this option. If not assigned, the default setting is used which depends on the version of the Decklink SDK installed.
ui={"json_type": "boolean"}

[no sdk disableaudiooutput]
description=If set, whether ot not to skip DisableAudioOutput() on shutdown. If this driver hangs on shutdown or exits suddenly after being unresponsive, set this option. If not assigned, the default setting is used which depends on the version of the Decklink SDK installed.
ui={"json_type": "boolean"}

[aggressive shutdown]
description=If set, use an aggressive shutdown procedure that forces the Decklink SDK to release all resources. If not assigned, the default setting is used which depends on the version of the Decklink SDK installed.
ui={"json_type": "boolean"}

[decklink enable sdi output]
description=If set, explicitly enable SDI output. If not set, leave output as-is.
ui={"json_type": "boolean"}

[decklink enable hdmi output]
description=If set, explicitly enable HDMI output. If not set, leave output as-is.
ui={"json_type": "boolean"}

[decklink enable optical sdi output]
description=If set, explicitly enable optical SDI output. If not set, leave output as-is.
ui={"json_type": "boolean"}

[decklink enable component output]
description=If set, explicitly enable optical component output. If not set, leave output as-is. Depending on the model of the card, enabling component MAY disable composite output and/or S-Video.
ui={"json_type": "boolean"}

[decklink enable composite output]
description=If set, explicitly enable optical composite output. If not set, leave output as-is. Depending on the model of the card, enabling composite MAY disable component output and may automatically enable S-Video.
ui={"json_type": "boolean"}

[decklink enable s-video output]
description=If set, explicitly enable optical S-Video output. If not set, leave output as-is. Depending on the model of the card, enabling S-Video may disable component video.
ui={"json_type": "boolean"}

[auto restart on stuck audio]
default=1
description=If set, and audio output appears to have halted, the code will forcibly reset video/audio output.
ui={"json_type": "boolean"}

[auto restart if no devices]
default=0
description=If set, the driver will initiate system reset if the card fails to show in 10 seconds from driver startup. This option is needed for some mid-2014 revisions of Black Magic Decklink Studio cards that fail to show up reliably on boot.
ui={"json_type": "string"}

[vanc horizontal offset]
description=If assigned a value, VANC packets will be encoded this many pixels into the scanline (instead of from the beginning). If closed captioning is not working, try setting this to a nonzero value. This may be needed for some combinations of Decklink and SDK known to cut off the beginning of the VANC data packets emitted by this driver.
ui={"json_type": "string"}

[use sdk configuration interface]
description=If set, control whether or not we ask for the IDeckLinkConfiguration interface. The configuration interface is needed to control outputs and set audio volume levels as permitted by their SDK.
ui={"json_type": "string"}

[enable concurrent init]
default=-1
description=If set, allow this output to initialize concurrently with other SDI outputs. If clear, by default, this SDI output will 'wait it's turn' to switch on. If you experience frequent crashes on startup with newer Black Magic Duo and Quad hardware, uncheck this box.
ui={"json_type": "boolean"}

[active]
letter=*
flags=s detail
description=Status display, whether or not the SDI output is open
ui={"json_type": "string"}

[last notes]
letter=*
flags=s detail nogui
description=Informational notes about opening the SDI output, for debugging purposes.
ui={"json_type": "string"}

[last error]
letter=*
flags=s detail
description=Last error encountered when trying to open the SDI output
ui={"json_type": "string"}

[using device]
letter=*
flags=s detail
description=Device currently in use
ui={"json_type": "string"}

[eia-608 caption status]
letter=*
flags=s detail
description=Caption data coming out of this output (sent to Line 21 and/or VANC), for debugging purposes.
ui={"json_type": "string"}

[autostart item]
description=If set, the output will attempt to start the item it feeds from when you start the output, and will attempt to restart the item automatically.
ui={"json_type": "string"}
