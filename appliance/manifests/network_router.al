# What a router on the network reports too.

[connection]
letter=*
flags=s detail
description=Status of the connection to the router
ui={"json_type": "string"}
