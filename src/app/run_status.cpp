#include "app/run_status.h"

#include <cstddef>

#include "common/number_text.h"
#include "disasm/decoder.h"
#include "isa/instruction_set.h"

namespace corvane::app {

namespace {

std::string NameOf(SimulationRate rate) {
    switch (rate) {
        case SimulationRate::StepByStep:
            return "Step By Step";
        case SimulationRate::Slow:
            return "Slow";
        case SimulationRate::Normal:
            return "Normal";
        case SimulationRate::Fast:
            return "Fast";
        case SimulationRate::ExtremelyFast:
            break;
    }
    return "Extremely Fast";
}

// "000A: GOTO 0x004", with the instruction that is executed next.
std::string Place(const core::Processor& processor, int pc) {
    if (pc >= processor.model->programWords) {
        return common::Hex4(pc);
    }
    return common::Hex4(pc) + ": " +
           disasm::DecodeInstruction(processor.programMemory.at(static_cast<std::size_t>(pc)));
}

// What the last step was. SLEEP and a word that is no instruction leave pc where they are.
std::string WhyEnded(const core::Processor& processor, int pc) {
    const int word = processor.state.lastInstruction;
    const isa::Operation operation = word >= 0 ? isa::Classify(word) : isa::Operation::Nop;
    if (operation == isa::Operation::Unrecognized) {
        return "no instruction, word " + common::Hex4(word) + " at " + common::Hex4(pc);
    }
    if (operation == isa::Operation::Sleep) {
        return "SLEEP at " + common::Hex4(pc);
    }
    return "end of program memory at " + common::Hex4(pc);
}

std::string ConditionText(const RunStatus& status, const core::Processor& processor) {
    switch (status.condition) {
        case RunCondition::Idle:
            return "Idle";
        case RunCondition::Waiting:
            return "Waiting at " + Place(processor, status.pc);
        case RunCondition::AtBreakpoint:
            return "Breakpoint at " + Place(processor, status.pc);
        case RunCondition::Running:
            return "Running, " + NameOf(status.rate);
        case RunCondition::Going:
            return "Going through the history";
        case RunCondition::Ended:
            return "Stopped: " + WhyEnded(processor, status.pc);
        case RunCondition::Stopped:
            break;
    }
    return "Stopped: Stop at " + Place(processor, status.pc);
}

}  // namespace

std::string StatusText(const RunStatus& status, const core::Processor& processor) {
    std::string text = ConditionText(status, processor);
    if (status.past) {
        text += ", step " + std::to_string(status.past->step) + " of " +
                std::to_string(status.past->lastStep);
    }
    return status.remark.empty() ? text : text + ". " + status.remark;
}

}  // namespace corvane::app
