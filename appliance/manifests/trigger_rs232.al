# What a trigger_rs232 input has beside its document. Its driver comes from the first line of its settings.

[active]
letter=*
flags=s detail
description=Status, whether or not the serial port is being watched
ui={"json_type": "boolean"}

[driver]
flags=s
description=The driver of this item
ui={"json_type": "string"}

[line status]
letter=*
flags=s detail
description=Status of the modem status lines
ui={"json_type": "string"}
