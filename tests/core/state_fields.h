// The fields of a state by name: "w", "pc", "020" for data memory cell 020h, "ee7", "stack1".
#pragma once

#include <cstddef>
#include <string>

#include "common/number_text.h"
#include "core/processor_state.h"

namespace corvane::core {

// Calls visit(name, field) for every field of a state, which may be const.
template <typename State, typename Visit>
void ForEachField(State& state, const Visit& visit) {
    const auto visitArray = [&visit](const std::string& name, auto& array) {
        for (std::size_t i = 0; i < array.size(); ++i) {
            visit(name + std::to_string(i), array[i]);
        }
    };
    for (std::size_t cell = 0; cell < state.dataMemory.size(); ++cell) {
        visit(common::Hex3(static_cast<std::int64_t>(cell)), state.dataMemory[cell]);
    }
    visit("w", state.w);
    visit("pc", state.pc);
    visitArray("stack", state.hardwareStack);
    visit("sp", state.stackPointer);
    visit("steps", state.instructionCount);
    visit("clocks", state.clockCycles);
    visit("last", state.lastInstruction);
    visit("prescaler", state.prescalerCount);
    visit("stop", state.stopRequested);
    visitArray("in", state.pinInputs);
    visitArray("port", state.portValues);
    visitArray("an", state.analogValues);
    visitArray("analog", state.analogPinFlags);
    visit("vref", state.vrefValue);
    visitArray("ee", state.eepromMemory);
    visit("busy", state.eeWriteBusy);
    visit("eeElapsed", state.eeWriteElapsed);
    visit("eeAddress", state.eeWriteAddress);
    visit("eeData", state.eeWriteData);
    visit("unlock", state.eeUnlockState);
    visit("adElapsed", state.adElapsed);
    visit("adSample", state.adSample);
}

}  // namespace corvane::core
