// A driver's answer to "report".
#pragma once

#include <vector>

#include "driver_state.hpp"
#include "misbehaviour.hpp"
#include "platform/packet.hpp"

// Adds the entries of a report to a packet that has been begun: the settings, then the status of the
// driver, which hides settings of the same name.
void write_report(packet::Writer& writer, const DriverState& state, const Misbehaviour& misbehaviour);
