// How instructions reach registers: banks, indirect addressing, mirrors, write masks, and what
// reading or writing a special function register does besides.
// Data sheet: "Data Memory Organization", "Indirect Addressing", "PCL and PCLATH".
#pragma once

#include <cstdint>

#include "core/processor.h"
#include "core/registers.h"

namespace corvane::core {

// An instruction that sets flags writes its result first and its flags afterwards, so that a result
// in STATUS leaves bits 2..0 to the flags.
enum class FlagBits : std::uint8_t { AsWritten, Kept };

// The cell of a file address (0..127) with the bank that is selected, or kIndirectCell for INDF.
inline std::size_t ResolveAddress(const Processor& processor, std::size_t f) {
    const Dispatch& dispatch = processor.dispatch;
    return dispatch.resolvedCells[dispatch.bankOffset + f];
}

// The cell that INDF stands for.
inline std::size_t IndirectCell(const Processor& processor) {
    const auto& memory = processor.state.dataMemory;
    const int address = memory[kFsr] + (memory[kStatus] & status::kIrp) * 2;
    return processor.description.addressMap[static_cast<std::size_t>(address)];
}

// Reads and writes a cell of any kind but INDF and a digital port. Values are 0..255.
int ReadRegister(Processor& processor, std::size_t cell);
void WriteRegister(Processor& processor, std::size_t cell, int value, FlagBits flagBits);

// On to the next address; behind the last one comes 0.
inline void IncrementPc(ProcessorState& state) {
    state.pc = (state.pc + 1) & kProgramCounterMask;
}

// Works out which cell each address means, and lets the peripherals claim theirs. Needed once.
void DeriveCellAccess(Processor& processor);

// Takes the bank that STATUS selects.
void SelectBank(Processor& processor);

}  // namespace corvane::core
