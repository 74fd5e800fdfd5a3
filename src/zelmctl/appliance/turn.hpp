// Runs that change the whole appliance take turns.
#pragma once

#include "platform/io.hpp"

// Waits until no other run has the turn, which is said on standard error, and takes it for as long as the
// descriptor is open. None, which has been said, when that can't be.
Descriptor take_turn();
