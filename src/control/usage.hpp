// The help texts, all on standard error.
#pragma once

// The usage text of the tool that exec_mode tells. Without one the process aborts.
void help();

// What a channel may be called.
void create_channel_help();
