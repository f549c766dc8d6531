#include "core/cpu/register_instructions.h"

#include "core/cells.h"
#include "core/clock.h"
#include "core/cpu/data_memory.h"
#include "core/cpu/flags.h"

namespace corvane::core {

namespace {

using isa::Operation;

enum class Destination { W, Register };

// A register whose cell has no effects besides holding its value.
struct PlainRegister {
    Processor& processor;
    std::size_t cell;

    int Read() const { return processor.state.dataMemory[cell]; }
    void Write(int value, FlagBits /*flagBits*/) const { StoreMasked(processor, cell, value); }
};

// PORTB, PORTC and the like: what programs use most besides plain registers.
struct DigitalPortRegister {
    Processor& processor;
    std::size_t cell;

    int Read() const { return processor.state.portValues[cell - kPortA]; }
    // Nothing looks at the levels before the step ends, so they may change at once.
    void Write(int value, FlagBits flagBits) const {
        PlainRegister{processor, cell}.Write(value, flagBits);
        UpdateDigitalPort(processor.state, cell - kPortA);
    }
};

struct AnyRegister {
    Processor& processor;
    std::size_t cell;

    int Read() const { return ReadRegister(processor, cell); }
    void Write(int value, FlagBits flagBits) const {
        WriteRegister(processor, cell, value, flagBits);
    }
};

// An instruction is a struct with kEffects, the effects of a cell that is not plain for it, and a
// function template Execute(processor, register, decoded). The cases are functions of their own
// so that the plain one needs no stack frame.
template <typename Instruction>
[[gnu::noinline]] void ExecuteOnAnyCell(Processor& processor, const DecodedWord& decoded,
                                        std::size_t cell) {
    if ((processor.dispatch.cells.EffectsOf(cell) & kDigitalPortEffect) != 0) {
        Instruction::Execute(processor, DigitalPortRegister{processor, cell}, decoded);
    } else {
        Instruction::Execute(processor, AnyRegister{processor, cell}, decoded);
    }
}

template <typename Instruction>
[[gnu::noinline]] void ExecuteIndirectly(Processor& processor, const DecodedWord& decoded) {
    const std::size_t cell = IndirectCell(processor);
    if ((processor.dispatch.cells.EffectsOf(cell) & Instruction::kEffects) != 0) {
        ExecuteOnAnyCell<Instruction>(processor, decoded, cell);
    } else {
        Instruction::Execute(processor, PlainRegister{processor, cell}, decoded);
    }
}

template <typename Instruction>
void ExecuteOnRegister(Processor& processor, const DecodedWord& decoded) {
    const std::size_t cell = ResolveAddress(processor, decoded.operand);
    if ((processor.dispatch.cells.EffectsOf(cell) & Instruction::kEffects) == 0) {
        Instruction::Execute(processor, PlainRegister{processor, cell}, decoded);
    } else if (cell == kIndirectCell) {
        ExecuteIndirectly<Instruction>(processor, decoded);
    } else {
        ExecuteOnAnyCell<Instruction>(processor, decoded, cell);
    }
}

template <Destination destination>
struct WithDestination {
    static constexpr CellEffect kEffects =
        destination == Destination::Register ? kWriteEffect : kReadEffect;

    template <typename Register>
    static void Store(Processor& processor, Register reg, int result, FlagBits flagBits) {
        if constexpr (destination == Destination::Register) {
            reg.Write(result, flagBits);
        } else {
            processor.state.w = result;
        }
    }
};

void Skip(Processor& processor) {
    IncrementPc(processor.state);
    ExtraCycle(processor);
}

constexpr int Decrement(int f, int /*w*/) {
    return (f - 1) & 0xFF;
}
constexpr int Increment(int f, int /*w*/) {
    return (f + 1) & 0xFF;
}
constexpr int Move(int f, int /*w*/) {
    return f;
}
constexpr int Complement(int f, int /*w*/) {
    return f ^ 0xFF;
}
constexpr int SwapNibbles(int f, int /*w*/) {
    return (f >> 4) | ((f & 0x0F) << 4);
}

// DECF, IORWF, ANDWF, XORWF, MOVF, COMF, INCF: Z is the only flag.
template <Destination destination, Compute compute>
struct ComputeSettingZero : WithDestination<destination> {
    template <typename Register>
    static void Execute(Processor& processor, Register reg, const DecodedWord& /*decoded*/) {
        const int result = compute(reg.Read(), processor.state.w);
        WithDestination<destination>::Store(processor, reg, result, FlagBits::Kept);
        SetZeroFlag(processor.state, result);
    }
};

template <Destination destination>
struct SwapRegister : WithDestination<destination> {
    template <typename Register>
    static void Execute(Processor& processor, Register reg, const DecodedWord& /*decoded*/) {
        const int result = SwapNibbles(reg.Read(), 0);
        WithDestination<destination>::Store(processor, reg, result, FlagBits::AsWritten);
    }
};

// DECFSZ, INCFSZ.
template <Destination destination, Compute compute>
struct ComputeSkippingIfZero : WithDestination<destination> {
    template <typename Register>
    static void Execute(Processor& processor, Register reg, const DecodedWord& /*decoded*/) {
        const int result = compute(reg.Read(), 0);
        WithDestination<destination>::Store(processor, reg, result, FlagBits::AsWritten);
        if (result == 0) {
            Skip(processor);
        }
    }
};

template <Destination destination>
struct AddToRegister : WithDestination<destination> {
    template <typename Register>
    static void Execute(Processor& processor, Register reg, const DecodedWord& /*decoded*/) {
        const int a = reg.Read();
        const int w = processor.state.w;
        WithDestination<destination>::Store(processor, reg, (a + w) & 0xFF, FlagBits::Kept);
        SetAddFlags(processor.state, a, w, a + w);
    }
};

template <Destination destination>
struct SubtractFromRegister : WithDestination<destination> {
    template <typename Register>
    static void Execute(Processor& processor, Register reg, const DecodedWord& /*decoded*/) {
        const int a = reg.Read();
        const int w = processor.state.w;
        WithDestination<destination>::Store(processor, reg, (a - w) & 0xFF, FlagBits::Kept);
        Subtract(processor.state, a, w);
    }
};

// RLF, RRF: through C, which takes the bit that leaves and gives the one that enters.
template <Destination destination, bool isLeft>
struct Rotate : WithDestination<destination> {
    template <typename Register>
    static void Execute(Processor& processor, Register reg, const DecodedWord& /*decoded*/) {
        const int a = reg.Read();
        const int carryIn = processor.state.dataMemory[kStatus] & status::kC;
        const int result = isLeft ? ((a << 1) | carryIn) & 0xFF : (a >> 1) | (carryIn << 7);
        WithDestination<destination>::Store(processor, reg, result, FlagBits::Kept);
        StoreFlags(processor.state, status::kC, isLeft ? a >> 7 : a & 1);
    }
};

struct Movwf {
    static constexpr CellEffect kEffects = kWriteEffect;

    template <typename Register>
    static void Execute(Processor& processor, Register reg, const DecodedWord& /*decoded*/) {
        reg.Write(processor.state.w, FlagBits::AsWritten);
    }
};

struct Clrf {
    static constexpr CellEffect kEffects = kWriteEffect;

    template <typename Register>
    static void Execute(Processor& processor, Register reg, const DecodedWord& /*decoded*/) {
        reg.Write(0, FlagBits::Kept);
        SetZeroFlag(processor.state, 0);
    }
};

// BCF, BSF.
template <bool value>
struct WriteBit {
    static constexpr CellEffect kEffects = kWriteEffect;

    template <typename Register>
    static void Execute(Processor& /*processor*/, Register reg, const DecodedWord& decoded) {
        const int a = reg.Read();
        reg.Write(value ? a | decoded.bitMask : a & ~decoded.bitMask, FlagBits::AsWritten);
    }
};

// BTFSC, BTFSS.
template <bool skippedValue>
struct TestBit {
    static constexpr CellEffect kEffects = kReadEffect;

    template <typename Register>
    static void Execute(Processor& processor, Register reg, const DecodedWord& decoded) {
        if (((reg.Read() & decoded.bitMask) != 0) == skippedValue) {
            Skip(processor);
        }
    }
};

template <Destination d>
ExecuteFunction RegisterFunction(Operation operation) {
    using enum Operation;
    switch (operation) {
        case Subwf:
            return ExecuteOnRegister<SubtractFromRegister<d>>;
        case Addwf:
            return ExecuteOnRegister<AddToRegister<d>>;
        case Decf:
            return ExecuteOnRegister<ComputeSettingZero<d, Decrement>>;
        case Iorwf:
            return ExecuteOnRegister<ComputeSettingZero<d, InclusiveOr>>;
        case Andwf:
            return ExecuteOnRegister<ComputeSettingZero<d, And>>;
        case Xorwf:
            return ExecuteOnRegister<ComputeSettingZero<d, ExclusiveOr>>;
        case Movf:
            return ExecuteOnRegister<ComputeSettingZero<d, Move>>;
        case Comf:
            return ExecuteOnRegister<ComputeSettingZero<d, Complement>>;
        case Incf:
            return ExecuteOnRegister<ComputeSettingZero<d, Increment>>;
        case Decfsz:
            return ExecuteOnRegister<ComputeSkippingIfZero<d, Decrement>>;
        case Incfsz:
            return ExecuteOnRegister<ComputeSkippingIfZero<d, Increment>>;
        case Rrf:
            return ExecuteOnRegister<Rotate<d, false>>;
        case Rlf:
            return ExecuteOnRegister<Rotate<d, true>>;
        default:
            return ExecuteOnRegister<SwapRegister<d>>;
    }
}

}  // namespace

ExecuteFunction RegisterInstruction(Operation operation, int word) {
    switch (operation) {
        case Operation::Movwf:
            return ExecuteOnRegister<Movwf>;
        case Operation::Clrf:
            return ExecuteOnRegister<Clrf>;
        case Operation::Bcf:
            return ExecuteOnRegister<WriteBit<false>>;
        case Operation::Bsf:
            return ExecuteOnRegister<WriteBit<true>>;
        case Operation::Btfsc:
            return ExecuteOnRegister<TestBit<false>>;
        case Operation::Btfss:
            return ExecuteOnRegister<TestBit<true>>;
        default:
            return isa::DestinationField(word) != 0
                       ? RegisterFunction<Destination::Register>(operation)
                       : RegisterFunction<Destination::W>(operation);
    }
}

}  // namespace corvane::core
