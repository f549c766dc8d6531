#include "project/last_instruction.h"

#include "disasm/decoder.h"

namespace corvane::project {

std::string LastInstructionText(const core::ProcessorState& state) {
    switch (state.lastInstruction) {
        case core::kNoInstruction:
            return "";
        case core::kInterruptEntry:
            return "INTERRUPT!";
        default:
            return disasm::DecodeInstruction(state.lastInstruction);
    }
}

}  // namespace corvane::project
