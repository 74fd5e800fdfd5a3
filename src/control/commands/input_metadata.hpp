// The metadata of a new input.
#pragma once

#include <string>

// Has an outside program prepare the metadata, if the new item is an input. A program that hangs ends this
// run by its alarm. 1 when it couldn't be forked, else 0: what it answers is not looked at.
int make_input_metadata_or_complain(const std::string& item);
