# What a router on a serial line reports too.

[serial port status]
letter=*
flags=s detail
description=Status of the serial port
ui={"json_type": "string"}
