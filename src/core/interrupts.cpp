#include "core/interrupts.h"

#include "core/data_memory.h"
#include "core/stack.h"
#include "core/timer0.h"

namespace corvane::core {

namespace {

constexpr int kInterruptVector = 0x0004;
constexpr int kPir2Sources = 0x59;           // CCP2IF, BCLIF, EEIF and the reserved bit 6
constexpr int kPic16F62xPir1Sources = 0xF7;  // bit 3 is not implemented

bool PeripheralPending(const Processor& processor) {
    const auto& memory = processor.state.dataMemory;
    const int pir1 = memory[kPir1] & memory[kPie1];
    if (processor.model->family == models::ModelFamily::Pic16F62x) {
        return (pir1 & kPic16F62xPir1Sources) != 0;
    }
    return pir1 != 0 || (memory[kPir2] & memory[kPie2] & kPir2Sources) != 0;
}

}  // namespace

bool InterruptPending(const Processor& processor) {
    const auto& memory = processor.state.dataMemory;
    const std::uint8_t intcon = memory[kIntcon];
    if (!AnySet(intcon, intcon::kGie)) {
        return false;
    }
    // RBIF, INTF and T0IF stand three bits below their enable bits.
    if ((intcon & (intcon >> 3) & intcon::kCoreFlags) != 0) {
        return true;
    }
    if (!AnySet(intcon, intcon::kPeie)) {
        return false;
    }
    if (processor.model->family == models::ModelFamily::Pic16F8x) {
        const models::FamilyTraits& traits = models::TraitsOf(processor.model->family);
        return AnySet(memory[static_cast<std::size_t>(traits.eeifRegister)], traits.eeifMask);
    }
    return PeripheralPending(processor);
}

void EnterInterrupt(Processor& processor) {
    ProcessorState& state = processor.state;
    state.lastInstruction = kInterruptEntry;
    ClearBits(state.dataMemory[kIntcon], intcon::kGie);
    Push(state, state.pc);
    state.pc = kInterruptVector;
    InstructionCycle(processor);
    RaiseAttention(processor.dispatch, kInterruptAttention);
}

}  // namespace corvane::core
