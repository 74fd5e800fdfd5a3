// Does what a plan says.
#pragma once

#include <functional>

#include "zelmctl/appliance/plan.hpp"

// Whether all of it may be done, as far as rights tell. What may not has been said.
bool may_do(const Plan& plan);

// Does the steps, and calls tell(item, step) for each once it is done or can't be, with its error. What fails
// leaves the other items alone. The limit is
// for what drivers are told, and anew for what is stopped and for what is started.
using TellStep = std::function<void(const PlannedItem&, const Step&)>;
void do_plan(Plan& plan, std::uint64_t timeout_us, const TellStep& tell);
