// The members of a schedule_push output's document, in their order. A URL may hold credentials in clear,
// and a format is html or xml, though any text passes.
#pragma once

#include "schema/row.hpp"

namespace fields {

using enum Coding;

inline constexpr Row SCHEDULE_PUSH[] = {
    {"autostart", "autostart", NULLABLE_TEXT, "", "Whether or not the item is automatically started"},
    {"driver", "driver", NULLABLE_CONSTANT, "schedule_push", ""},
    {"item", "item", NULLABLE_TEXT, "", "Channel path to feed from"},
    {"active", "active", NULLABLE_TEXT, "", "Status", STATUS},
    {"post_url", "post url", NULLABLE_TEXT, "", "Where to send schedule data (Tavorn VOD system)", SECRET},
    {"post_interval", "post interval", NULLABLE_TEXT, "", "How often (in minutes)"},
    {"post_status", "post status", NULLABLE_TEXT, "", "Status", STATUS},
    {"ftp1_url", "ftp1 url", NULLABLE_TEXT, "",
        "Where to send schedule data: an FTP URL with user name, password, host and remote path, or an SFTP URL",
        SECRET},
    {"ftp1_interval", "ftp1 interval", NULLABLE_TEXT, "", "How often (in minutes)"},
    {"ftp1_format", "ftp1 format", TEXT, "xml", "What format (HTML or XML)", words("html|xml")},
    {"ftp1_status", "ftp1 status", NULLABLE_TEXT, "", "Status", STATUS},
    {"ftp2_url", "ftp2 url", NULLABLE_TEXT, "",
        "Where to send schedule data: an FTP URL with user name, password, host and remote path, or an SFTP URL",
        SECRET},
    {"ftp2_interval", "ftp2 interval", NULLABLE_TEXT, "", "How often (in minutes)"},
    {"ftp2_format", "ftp2 format", TEXT, "xml", "What format (HTML or XML)", words("html|xml")},
    {"ftp2_status", "ftp2 status", NULLABLE_TEXT, "", "Status", STATUS},
};

}  // namespace fields
