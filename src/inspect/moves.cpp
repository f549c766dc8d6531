#include "inspect/moves.h"

#include "isa/instruction_set.h"

namespace corvane::inspect {

namespace {

SearchEnd EndOf(PlayEnd end) {
    switch (end) {
        case PlayEnd::Reached:
        case PlayEnd::Found:
            return SearchEnd::Found;
        case PlayEnd::Ended:
            return SearchEnd::Ended;
        case PlayEnd::Limit:
            return SearchEnd::Limit;
        case PlayEnd::Cancelled:
            break;
    }
    return SearchEnd::Cancelled;
}

SearchEnd GoToStart(History& history) {
    const PlayEnd end = history.GoTo(0);
    return end == PlayEnd::Reached ? SearchEnd::Start : EndOf(end);
}

SearchEnd SearchFor(History& history, const StopsToMeet& stops, const Goal& goal,
                    Direction direction) {
    StopLookout lookout(stops.stops, goal, stops.faults);
    return Search(history, lookout, direction);
}

// The level from which a call leads to this one. There are eight, in a ring.
int LevelBelow(int stackPointer) {
    return stackPointer == 1 ? core::kStackLevels : stackPointer - 1;
}

int ReturnAddress(const core::ProcessorState& state) {
    return state.hardwareStack[static_cast<std::size_t>(state.stackPointer)];
}

// Where the call stands that returns here; an interrupt returns to where it came.
std::vector<int> CallersOf(int returnAddress) {
    return {returnAddress, (returnAddress - 1) & core::kProgramCounterMask};
}

bool HasEntered(const core::ProcessorState& state) {
    return state.lastInstruction == core::kInterruptEntry ||
           (state.lastInstruction >= 0 &&
            isa::Classify(state.lastInstruction) == isa::Operation::Call);
}

bool HasReturned(const core::ProcessorState& state) {
    const isa::Operation last =
        state.lastInstruction < 0 ? isa::Operation::Nop : isa::Classify(state.lastInstruction);
    return last == isa::Operation::Return || last == isa::Operation::Retlw ||
           last == isa::Operation::Retfie;
}

}  // namespace

// A position that was found going back is gone to by the step before it, so that the lookout sees
// what holds there.
SearchEnd Search(History& history, StopLookout& lookout, Direction direction) {
    if (direction == Direction::Back) {
        const std::optional<std::int64_t> found = history.FindPrevious(lookout);
        if (history.IsCancelled()) {
            return SearchEnd::Cancelled;
        }
        if (!found || *found == 0) {
            return GoToStart(history);
        }
        const PlayEnd end = history.GoTo(*found - 1);
        if (end != PlayEnd::Reached) {
            return EndOf(end);
        }
    }
    return EndOf(history.FindNext(lookout));
}

SearchEnd StepOver(History& history, const StopsToMeet& stops, Direction direction) {
    const core::ProcessorState before = history.Now().processor.state;
    if (direction == Direction::Back) {
        return HasReturned(before) ? SearchFor(history, stops,
                                               {.addresses = CallersOf(before.pc),
                                                .stackPointer = before.stackPointer},
                                               direction)
                                   : EndOf(history.GoTo(history.Position() - 1));
    }
    const PlayEnd end = history.GoTo(history.Position() + 1);
    const core::ProcessorState& after = history.Now().processor.state;
    if (end != PlayEnd::Reached || after.stopRequested || !HasEntered(after)) {
        return after.stopRequested ? SearchEnd::Ended : EndOf(end);
    }
    return SearchFor(history, stops,
                     {.addresses = {ReturnAddress(after)}, .stackPointer = before.stackPointer},
                     direction);
}

SearchEnd StepOut(History& history, const StopsToMeet& stops, Direction direction) {
    const core::ProcessorState& state = history.Now().processor.state;
    const int returnAddress = ReturnAddress(state);
    return SearchFor(history, stops,
                     {.addresses = direction == Direction::Back ? CallersOf(returnAddress)
                                                                : std::vector{returnAddress},
                      .stackPointer = LevelBelow(state.stackPointer)},
                     direction);
}

bool HasCaller(const core::ProcessorState& state) {
    return state.stackPointer != core::kStackLevels;
}

}  // namespace corvane::inspect
