// A subroutine that a test calls in the program's place.
#pragma once

#include <string>

#include "core/processor.h"
#include "inspect/expression.h"
#include "inspect/faults.h"
#include "scenario/statement.h"

namespace corvane::scenario {

// Sets the values of a call statement, selects the subroutine's page as a caller would, and lets it
// return to the place, an address. Takes no time. Why it cannot be done, with nothing changed;
// empty when it is.
std::string BeginCall(core::Processor& processor, inspect::FaultFinder& faults,
                      const inspect::Moment& now, const Statement& statement, int place);

// True once the call that has just begun has returned to the place; changes only with a return.
inspect::Expression HasReturned(const inspect::Moment& now, int place);

}  // namespace corvane::scenario
