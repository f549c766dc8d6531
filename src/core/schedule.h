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

// At the end of a step: advances the peripherals that need it.
void AdvancePeripherals(Processor& processor);

// Within an instruction: brings what counts instruction cycles up to date.
void CatchUpWithClock(Processor& processor, std::size_t owner);

// Between two steps: brings everything that counts up to date.
void CatchUpAll(Processor& processor);

// Works out anew when a peripheral is due; needed after its registers were written.
void Reschedule(Processor& processor, std::size_t peripheral);

// Nothing is known about what changed: all peripherals are advanced at the end of the next step.
void RescheduleAll(Processor& processor);

}  // namespace corvane::core
