# What the settings of every item but a channel have. Of most documents it is no member.

[driver]
description=The driver of this item
ui={"json_type": "string"}
