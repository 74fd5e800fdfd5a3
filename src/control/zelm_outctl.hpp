// The tool's entry: works out which of the four tools this run is, scans the command line, and runs
// exactly one command.
#pragma once

// The whole run. The result is the exit status.
int main_wrapper(int argc, char** argv);
