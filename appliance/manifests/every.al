# What every driver reports beside its document.

[frames rendered]
letter=&
flags=s detail
description=Status, how many frames the driver has rendered since it was started
ui={"json_type": "integer"}

[recent events]
letter=*
flags=s detail
description=Status, what the driver did last
ui={"json_type": "string"}

[reports answered]
letter=&
flags=s detail
description=Status, how many reports the driver has answered
ui={"json_type": "integer"}
