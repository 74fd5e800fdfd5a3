# What a router reports beside its document.

[active]
letter=*
flags=s detail
description=Status, whether or not the router is being controlled
ui={"json_type": "boolean"}

[last error]
letter=*
flags=s detail
description=Last error encountered when talking to the router
ui={"json_type": "string"}

[routes]
letter=*
flags=s detail
description=Status, which input each output shows
ui={"json_type": "string"}
