// Timer0 and its prescaler. Data sheet: "Timer0 Module".
#pragma once

#include "core/processor.h"

namespace corvane::core {

// One instruction cycle: 4 clock cycles, and a tick of Timer0 unless T0CKI clocks it.
inline void InstructionCycle(Processor& processor) {
    processor.state.clockCycles += kClocksPerCycle;
}

// An instruction's further cycle, which is no further step.
inline void ExtraCycle(Processor& processor) {
    InstructionCycle(processor);
    ++processor.dispatch.extraCycles;
}

// One count for Timer0 through the prescaler, from an edge of T0CKI.
void TimerTick(Processor& processor);

// Brings TMR0, the prescaler and T0IF up to clockCycles.
void CatchUpTimer(Processor& processor);

// Works out when Timer0 overflows next; needed after TMR0, the prescaler or OPTION_REG changed.
void ScheduleTimer(Processor& processor);

}  // namespace corvane::core
