// The members of a schedule_push output's document, in their order. A URL may hold credentials in clear,
// and a format is html or xml, though any text passes.
#pragma once

#include "schema/row.hpp"

namespace fields {

inline constexpr Row SCHEDULE_PUSH[] = {
    {"autostart", NULLABLE_TEXT, "Whether or not the item is automatically started"},
    {"driver", NULLABLE_CONSTANT, "schedule_push", ""},
    {"item", NULLABLE_TEXT, "Channel path to feed from"},
    {"active", NULLABLE_TEXT, "Status", STATUS},
    {"post url", NULLABLE_TEXT, "Where to send schedule data (Tavorn VOD system)", SECRET},
    {"post interval", NULLABLE_TEXT, "How often (in minutes)"},
    {"post status", NULLABLE_TEXT, "Status", STATUS},
    {"ftp1 url", NULLABLE_TEXT,
        "Where to send schedule data: an FTP URL with user name, password, host and remote path, or an SFTP URL",
        SECRET},
    {"ftp1 interval", NULLABLE_TEXT, "How often (in minutes)"},
    {"ftp1 format", TEXT, "xml", "What format (HTML or XML)", words("html|xml")},
    {"ftp1 status", NULLABLE_TEXT, "Status", STATUS},
    {"ftp2 url", NULLABLE_TEXT,
        "Where to send schedule data: an FTP URL with user name, password, host and remote path, or an SFTP URL",
        SECRET},
    {"ftp2 interval", NULLABLE_TEXT, "How often (in minutes)"},
    {"ftp2 format", TEXT, "xml", "What format (HTML or XML)", words("html|xml")},
    {"ftp2 status", NULLABLE_TEXT, "Status", STATUS},
};

}  // namespace fields
