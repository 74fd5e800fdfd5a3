// The members of a schedule_push output's document, in their order. A URL may hold credentials in clear,
// and a format is html or xml, though any text passes.
#pragma once

#include "schema/field.hpp"

inline constexpr Field SCHEDULE_PUSH_FIELDS[] = {
    {"autostart", "autostart", Coding::NULLABLE_TEXT, "", "Whether or not the item is automatically started"},
    {"driver", "driver", Coding::CONSTANT, "schedule_push", ""},
    {"item", "item", Coding::NULLABLE_TEXT, "", "Channel path to feed from"},
    {"active", "active", Coding::NULLABLE_TEXT, "", "Status"},
    {"post_url", "post url", Coding::NULLABLE_TEXT, "", "Where to send schedule data (Tavorn VOD system)"},
    {"post_interval", "post interval", Coding::NULLABLE_TEXT, "", "How often (in minutes)"},
    {"post_status", "post status", Coding::NULLABLE_TEXT, "", "Status"},
    {"ftp1_url", "ftp1 url", Coding::NULLABLE_TEXT, "",
        "Where to send schedule data: an FTP URL with user name, password, host and remote path, or an SFTP URL"},
    {"ftp1_interval", "ftp1 interval", Coding::NULLABLE_TEXT, "", "How often (in minutes)"},
    {"ftp1_format", "ftp1 format", Coding::TEXT, "xml", "What format (HTML or XML)"},
    {"ftp1_status", "ftp1 status", Coding::NULLABLE_TEXT, "", "Status"},
    {"ftp2_url", "ftp2 url", Coding::NULLABLE_TEXT, "",
        "Where to send schedule data: an FTP URL with user name, password, host and remote path, or an SFTP URL"},
    {"ftp2_interval", "ftp2 interval", Coding::NULLABLE_TEXT, "", "How often (in minutes)"},
    {"ftp2_format", "ftp2 format", Coding::TEXT, "xml", "What format (HTML or XML)"},
    {"ftp2_status", "ftp2 status", Coding::NULLABLE_TEXT, "", "Status"},
};
