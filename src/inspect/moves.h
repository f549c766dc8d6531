// Going from one position of a run to another that is searched for, in either direction.
#pragma once

#include <cstdint>

#include "inspect/history.h"
#include "inspect/stops.h"

namespace corvane::inspect {

enum class Direction : bool { Forward, Back };

// How a search ended; the position is the one that was found, or as far as it went.
enum class SearchEnd : std::uint8_t {
    Found,
    Start,  // nothing was found on the way back
    Ended,  // the program ended by itself
    Limit,
    Cancelled,
};

// Goes to the nearest position that the lookout finds. After Found the lookout tells what holds
// there.
SearchEnd Search(History& history, StopLookout& lookout, Direction direction);

// What a search is made with.
struct StopsToMeet {
    const std::vector<Stop>& stops;
    const FaultFinder& faults;
};

// Over a call or an interrupt that is entered with the next step, or, going back, that was returned
// from with the last one: a position at the same level of the hardware stack. Otherwise one step.
SearchEnd StepOver(History& history, const StopsToMeet& stops, Direction direction);

// To where the present routine returns to, or, going back, where it was entered from. Something is
// on the stack: HasCaller.
SearchEnd StepOut(History& history, const StopsToMeet& stops, Direction direction);
bool HasCaller(const core::ProcessorState& state);

}  // namespace corvane::inspect
