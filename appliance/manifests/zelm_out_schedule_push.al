# What a schedule_push output takes.

[autostart]
description=Whether or not the item is automatically started
ui={"json_type": "string"}

[item]
description=Channel path to feed from
ui={"json_type": "string"}

[active]
letter=*
flags=s detail
description=Status
ui={"json_type": "string"}

[post url]
description=Where to send schedule data (Tavorn VOD system)
ui={"json_type": "string"}

[post interval]
description=How often (in minutes)
ui={"json_type": "string"}

[post status]
letter=*
flags=s detail
description=Status
ui={"json_type": "string"}

[ftp1 url]
description=Where to send schedule data: an FTP URL with user name, password, host and remote path, or an SFTP URL
ui={"json_type": "string"}

[ftp1 interval]
description=How often (in minutes)
ui={"json_type": "string"}

[ftp1 format]
default=xml
description=What format (HTML or XML)
ui={"json_type": "string"}

[ftp1 status]
letter=*
flags=s detail
description=Status
ui={"json_type": "string"}

[ftp2 url]
description=Where to send schedule data: an FTP URL with user name, password, host and remote path, or an SFTP URL
ui={"json_type": "string"}

[ftp2 interval]
description=How often (in minutes)
ui={"json_type": "string"}

[ftp2 format]
default=xml
description=What format (HTML or XML)
ui={"json_type": "string"}

[ftp2 status]
letter=*
flags=s detail
description=Status
ui={"json_type": "string"}
