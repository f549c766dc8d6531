// The Debug commands that go through the history of the simulation. Each does nothing when it is
// not enabled: going back needs SimulationControl::CanGoBack, going forward CanStep.
#pragma once

#include <optional>
#include <string>

#include "app/chip_value.h"
#include "app/simulation_control.h"
#include "inspect/moves.h"

namespace corvane::app {

using inspect::Direction;

// To the step before.
void StepBack(SimulationControl& simulation);
// To the nearest stop before, or to Start.
void RunBack(SimulationControl& simulation);
// One step, a call or an interrupt as one.
void StepOver(SimulationControl& simulation, Direction direction);
// To where the present routine was called from, or will return to.
void StepOut(SimulationControl& simulation, Direction direction);
// Whether something is on the hardware stack that can be stepped out of.
bool CanStepOut(const SimulationControl& simulation, const core::Processor& processor);

// To where the value got what it is now: "who wrote this?"
void RunBackToLastChange(SimulationControl& simulation, const core::Processor& processor,
                         const ValuePlace& place);
// The value as an expression; nothing when the history does not see it.
std::optional<std::string> ExpressionOf(const ValuePlace& place);

// To the position after so many steps since Start.
void GoToStep(SimulationControl& simulation, std::int64_t step);

}  // namespace corvane::app
