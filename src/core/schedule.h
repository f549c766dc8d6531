// When peripherals are looked at: at their due times, at the end of a step that touched them, and
// when somebody looks at what they count.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "core/processor.h"

namespace corvane::core {

// True when a peripheral of the chip cares for the news.
inline bool HasFollowers(const Dispatch& dispatch, News news) {
    return dispatch.followers[static_cast<std::size_t>(news)] != 0;
}

// The peripherals that care for the news are advanced: those later in the list at the end of the
// present step, the others in the next one.
inline void Tell(Processor& processor, News news) {
    Dispatch& dispatch = processor.dispatch;
    dispatch.attention |= dispatch.followers[static_cast<std::size_t>(news)];
    EndSlice(dispatch);
}

// The instruction cycles of a time that has passed.
constexpr std::int64_t CyclesOf(std::int64_t clockCycles) {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(clockCycles) / kClocksPerCycle);
}

// Steps until an operation that counts 4 clock cycles a step reaches its time, both in clock
// cycles; 1 or more.
constexpr std::int64_t StepsUntil(int time, int elapsed) {
    return std::max(1, (time - elapsed + kClocksPerCycle - 1) / kClocksPerCycle);
}

// True when a peripheral must be advanced at the end of this step.
inline bool SomethingIsDue(const Processor& processor) {
    const Dispatch& dispatch = processor.dispatch;
    return dispatch.attention != 0 || processor.state.clockCycles >= dispatch.clockDue ||
           dispatch.steps >= dispatch.stepDue;
}

// How many steps the slice has made, the present one included.
inline std::int64_t StepsOfSlice(const Processor& processor) {
    const Dispatch& dispatch = processor.dispatch;
    return CyclesOf(processor.state.clockCycles - dispatch.sliceStart) - dispatch.extraCycles;
}

// What a passage of a loop reads of what changes with time.
struct TimedReads {
    PeripheralMask owners = 0;  // of the cells
    bool areBounded = true;     // all of them can say how long the cells stay as they are
};

// Notes that a passage reads a cell.
void NoteRead(const Processor& processor, std::size_t cell, TimedReads& reads);

// How far a loop can be repeated without anything becoming due in it, the run's last step included,
// and without a change of what it reads; less than 0 when that is past.
struct Room {
    std::int64_t clockCycles;
    std::int64_t steps;
};

// Since the steps that dispatch counts so many have been made. The cells are brought up to date.
Room RoomToRepeat(Processor& processor, PeripheralMask readOwners, std::int64_t stepsMade);

// At the end of a step: advances the peripherals that need it.
void AdvancePeripherals(Processor& processor);

// Within an instruction: brings what counts instruction cycles up to date, as far as something is
// due, and the owner.
void CatchUpWithClock(Processor& processor, std::size_t owner);

// Between two steps: brings what counts instruction cycles up to date, where nothing is due.
void CatchUpClocks(Processor& processor);

// Within an instruction: asks for the owner's advance at the end of the step.
inline void AskForLook(Dispatch& dispatch, std::size_t owner) {
    dispatch.attention |= MaskOf(owner);
    EndSlice(dispatch);
}

// Within an instruction: advances the owner, which counts steps, by the present one already, unless
// others must be advanced before it.
void ActAtOnce(Processor& processor, std::size_t owner);

// Between two steps: brings everything that counts up to date.
void CatchUpCounting(Processor& processor);
inline void CatchUpAll(Processor& processor) {
    if (processor.dispatch.counting != 0) {
        CatchUpCounting(processor);
    }
}

// Works out anew when a peripheral is due; needed after its registers were written.
void Reschedule(Processor& processor, std::size_t peripheral);

// Nothing is known about what changed: all peripherals are advanced at the end of the next step.
void RescheduleAll(Processor& processor);

}  // namespace corvane::core
