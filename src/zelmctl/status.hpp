// The exit statuses of zelmctl.
#pragma once

// The status of several items is the highest of theirs.
enum Status : int {
    IS_SO = 0,
    IS_NOT_SO = 1,      // or not for all
    TROUBLE = 2,        // the command line is wrong, or something could not be looked at
    CAME_AND_WENT = 3,  // an item came up while it was waited for, and ended again
};
