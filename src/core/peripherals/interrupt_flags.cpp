// INTCON and the flag and enable registers of the peripherals, and the pins RB0/INT and RB4 to RB7.
// Data sheet: "Interrupts".
#include "core/cells.h"
#include "core/cpu/interrupts.h"
#include "core/peripherals/peripherals.h"

namespace corvane::core {

namespace {

// The interrupt test follows the step.
void StoreAndTest(Processor& processor, std::size_t cell, int value) {
    StoreMasked(processor, cell, value);
    if (InterruptPending(processor)) {
        EndSlice(processor.dispatch);
    }
}

void ClaimCells(CellTable& cells, const models::FamilyTraits& traits) {
    const CellAccess flags = {.write = StoreAndTest, .followsTime = true};
    cells.Claim(kIntcon, flags);
    for (const models::InterruptSource& source : traits.interruptSources) {
        if (source.flags != models::kNoRegister) {
            cells.Claim(static_cast<std::size_t>(source.flags), flags);
        }
        if (source.enables != models::kNoRegister) {
            cells.Claim(static_cast<std::size_t>(source.enables), {.write = StoreAndTest});
        }
    }
}

// INTF at the edge that INTEDG chooses, RBIF at each; whether the pins are inputs does not matter.
void PinEdge(Processor& processor, models::Pin pin, bool isHigh) {
    constexpr int kPortB = 1;
    auto& memory = processor.state.dataMemory;
    if (pin == models::Pin{kPortB, 0} &&
        isHigh == AnySet(memory[kOptionReg], option_reg::kIntedg)) {
        SetBits(memory[kIntcon], intcon::kIntf);
    } else if (pin.port == kPortB && pin.bit >= 4) {
        SetBits(memory[kIntcon], intcon::kRbif);
    }
}

}  // namespace

const Peripheral kInterruptFlags = {.claimCells = ClaimCells, .pinEdge = PinEdge};

}  // namespace corvane::core
