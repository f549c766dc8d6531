// The kinds of registers that an instruction can meet. Which one it is is known when the word is
// decoded, but for INDF; so each instruction is written once, over any of these, and needs to ask
// nothing when it is executed.
// Data sheet: "STATUS Register", "PCL and PCLATH", "I/O Ports".
#pragma once

#include <cstddef>
#include <cstdint>

#include "core/cells.h"
#include "core/cpu/core.h"
#include "core/cpu/data_memory.h"

namespace corvane::core {

// An instruction that sets flags writes its result first and its flags afterwards, so that a result
// in STATUS leaves bits 2..0 to the flags.
enum class FlagBits : std::uint8_t { AsWritten, Kept };

// Nothing but a value of eight bits.
struct PlainRegister {
    static int Read(Core& core, std::size_t cell) { return core.processor.state.dataMemory[cell]; }
    static void Write(Core& core, std::size_t cell, int value, FlagBits /*flagBits*/) {
        core.processor.state.dataMemory[cell] = static_cast<std::uint8_t>(value);
    }
};

// The same with bits that a write does not change.
struct MaskedRegister : PlainRegister {
    static void Write(Core& core, std::size_t cell, int value, FlagBits /*flagBits*/) {
        StoreMasked(core.processor, cell, value);
    }
};

struct StatusRegister {
    static int Read(Core& core, std::size_t /*cell*/) { return core.status; }
    // NOT_TO and NOT_PD belong to the hardware: no write changes them.
    static void Write(Core& core, std::size_t cell, int value, FlagBits flagBits) {
        const int kept = status::kPowerFlags | (flagBits == FlagBits::Kept ? status::kFlags : 0);
        const int written = value & core.processor.description.writeMask[cell];
        const std::ptrdiff_t oldBank = BankOf(core.status);
        core.status = (written & ~kept) | (core.status & kept);
        const std::ptrdiff_t distance = (BankOf(core.status) - oldBank) * kDecodedWordsOfBank;
        core.processor.dispatch.bankCode += distance;
        core.next += distance;
    }
};

struct PclRegister {
    static int Read(Core& core, std::size_t /*cell*/) { return Pc(core) & 0xFF; }
    static void Write(Core& core, std::size_t /*cell*/, int value, FlagBits /*flagBits*/) {
        const int page = core.processor.state.dataMemory[kPclath] * 0x100;
        JumpTo(core, (page + value) & kProgramCounterMask);
    }
};

// The latch of PORTB, PORTC and the like: what programs use most besides plain registers. Nothing
// looks at the levels before the step ends, so they may change at once.
struct DigitalPortRegister {
    static int Read(Core& core, std::size_t cell) {
        return core.processor.state.portValues[cell - kPortA];
    }
    static void Write(Core& core, std::size_t cell, int value, FlagBits /*flagBits*/) {
        StoreMasked(core.processor, cell, value);
        UpdateOutputs(core.processor.state, cell - kPortA);
    }
};

// A cell of a peripheral that is more than a value only when it is written.
struct WriteClaimedRegister : PlainRegister {
    static void Write(Core& core, std::size_t cell, int value, FlagBits /*flagBits*/) {
        Save(core);
        WriteClaimed(core.processor, cell, value);
        TakeSliceEnd(core);
    }
};

// A cell of a peripheral.
struct ClaimedRegister : WriteClaimedRegister {
    static int Read(Core& core, std::size_t cell) {
        Save(core);
        const int value = ReadClaimed(core.processor, cell);
        TakeSliceEnd(core);
        return value;
    }
};

}  // namespace corvane::core
