#include "core/cpu/register_instructions.h"

#include "core/cpu/core.h"
#include "core/cpu/flags.h"
#include "core/cpu/register_kinds.h"

namespace corvane::core {

namespace {

using isa::Operation;

enum class Destination { W, Register };

// An instruction is a struct with kEffects, the effects of a cell that matter to it, and a function
// template Execute<Register>(core, cell), where Register is one of the kinds of registers.

// Of a bit instruction.
int BitOf(const DecodedWord& decoded) {
    return static_cast<std::uint8_t>(decoded.bitOrLoop);
}

template <typename Instruction, typename Register>
void Execute(Processor& processor, DecodedWord* at, std::int64_t left, int w, int status,
             DecodedWord* /*last*/) {
    Core core{processor, at, left, w, status, at + 1};
    Instruction::template Execute<Register>(core, at->operand);
    return GoOn(core);
}

template <typename Instruction>
[[gnu::noinline]] void ExecuteOnSpecialIndf(Processor& processor, DecodedWord* at,
                                            std::int64_t left, int w, int status,
                                            DecodedWord* /*last*/) {
    Core core{processor, at, left, w, status, at + 1};
    const std::size_t cell = IndirectCell(processor, status);
    if (cell == kStatus) {
        Instruction::template Execute<StatusRegister>(core, cell);
    } else if (cell == kPcl) {
        Instruction::template Execute<PclRegister>(core, cell);
    } else if ((processor.dispatch.cells.EffectsOf(cell) & kDigitalPortEffect) != 0) {
        Instruction::template Execute<DigitalPortRegister>(core, cell);
    } else {
        Instruction::template Execute<ClaimedRegister>(core, cell);
    }
    return GoOn(core);
}

// Cells without effects first, in a function that needs no stack frame.
template <typename Instruction>
void ExecuteOnIndf(Processor& processor, DecodedWord* at, std::int64_t left, int w, int status,
                   DecodedWord* last) {
    Core core{processor, at, left, w, status, at + 1};
    const std::size_t cell = IndirectCell(processor, status);
    if ((processor.dispatch.cells.EffectsOf(cell) & Instruction::kEffects) != 0) {
        return ExecuteOnSpecialIndf<Instruction>(processor, at, left, w, status, last);
    }
    Instruction::template Execute<MaskedRegister>(core, cell);
    return GoOn(core);
}

template <typename Instruction>
ExecuteFunction FunctionFor(const Processor& processor, std::size_t cell) {
    const std::uint8_t effects = processor.dispatch.cells.EffectsOf(cell);
    if (cell == kIndirectCell) {
        return ExecuteOnIndf<Instruction>;
    }
    if (cell == kStatus) {
        return Execute<Instruction, StatusRegister>;
    }
    if (cell == kPcl) {
        return Execute<Instruction, PclRegister>;
    }
    if ((effects & kDigitalPortEffect) != 0) {
        return Execute<Instruction, DigitalPortRegister>;
    }
    if ((effects & Instruction::kEffects) != 0) {
        return (effects & kReadEffect) != 0 ? Execute<Instruction, ClaimedRegister>
                                            : Execute<Instruction, WriteClaimedRegister>;
    }
    return processor.description.writeMask[cell] == 0xFF ? Execute<Instruction, PlainRegister>
                                                         : Execute<Instruction, MaskedRegister>;
}

template <Destination destination>
struct WithDestination {
    static constexpr CellEffect kEffects =
        destination == Destination::Register ? kWriteEffect : kReadEffect;

    template <typename Register>
    static void Store(Core& core, std::size_t cell, int result, FlagBits flagBits) {
        if constexpr (destination == Destination::Register) {
            Register::Write(core, cell, result, flagBits);
        } else {
            core.w = result;
        }
    }
};

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
    static void Execute(Core& core, std::size_t cell) {
        const int result = compute(Register::Read(core, cell), core.w);
        WithDestination<destination>::template Store<Register>(core, cell, result, FlagBits::Kept);
        SetZeroFlag(core, result);
    }
};

template <Destination destination>
struct SwapRegister : WithDestination<destination> {
    template <typename Register>
    static void Execute(Core& core, std::size_t cell) {
        const int result = SwapNibbles(Register::Read(core, cell), 0);
        WithDestination<destination>::template Store<Register>(core, cell, result,
                                                               FlagBits::AsWritten);
    }
};

// DECFSZ, INCFSZ.
template <Destination destination, Compute compute>
struct ComputeSkippingIfZero : WithDestination<destination> {
    template <typename Register>
    static void Execute(Core& core, std::size_t cell) {
        const int result = compute(Register::Read(core, cell), 0);
        WithDestination<destination>::template Store<Register>(core, cell, result,
                                                               FlagBits::AsWritten);
        if (result == 0) {
            Skip(core);
        }
    }
};

template <Destination destination>
struct AddToRegister : WithDestination<destination> {
    template <typename Register>
    static void Execute(Core& core, std::size_t cell) {
        const int a = Register::Read(core, cell);
        const int w = core.w;
        WithDestination<destination>::template Store<Register>(core, cell, (a + w) & 0xFF,
                                                               FlagBits::Kept);
        SetAddFlags(core, a, w, a + w);
    }
};

template <Destination destination>
struct SubtractFromRegister : WithDestination<destination> {
    template <typename Register>
    static void Execute(Core& core, std::size_t cell) {
        const int a = Register::Read(core, cell);
        const int w = core.w;
        WithDestination<destination>::template Store<Register>(core, cell, (a - w) & 0xFF,
                                                               FlagBits::Kept);
        Subtract(core, a, w);
    }
};

// RLF, RRF: through C, which takes the bit that leaves and gives the one that enters.
template <Destination destination, bool isLeft>
struct Rotate : WithDestination<destination> {
    template <typename Register>
    static void Execute(Core& core, std::size_t cell) {
        const int a = Register::Read(core, cell);
        const int carryIn = core.status & status::kC;
        const int result = isLeft ? ((a << 1) | carryIn) & 0xFF : (a >> 1) | (carryIn << 7);
        WithDestination<destination>::template Store<Register>(core, cell, result, FlagBits::Kept);
        SetStatusBits(core, status::kC, isLeft ? a >> 7 : a & 1);
    }
};

struct Movwf {
    static constexpr CellEffect kEffects = kWriteEffect;

    template <typename Register>
    static void Execute(Core& core, std::size_t cell) {
        Register::Write(core, cell, core.w, FlagBits::AsWritten);
    }
};

struct Clrf {
    static constexpr CellEffect kEffects = kWriteEffect;

    template <typename Register>
    static void Execute(Core& core, std::size_t cell) {
        Register::Write(core, cell, 0, FlagBits::Kept);
        SetZeroFlag(core, 0);
    }
};

// BCF, BSF.
template <bool value>
struct WriteBit {
    static constexpr CellEffect kEffects = kWriteEffect;

    template <typename Register>
    static void Execute(Core& core, std::size_t cell) {
        const int a = Register::Read(core, cell);
        Register::Write(core, cell, value ? a | BitOf(*core.at) : a & ~BitOf(*core.at),
                        FlagBits::AsWritten);
    }
};

// BTFSC, BTFSS.
template <bool skippedValue>
struct TestBit {
    static constexpr CellEffect kEffects = kReadEffect;

    template <typename Register>
    static void Execute(Core& core, std::size_t cell) {
        if (((Register::Read(core, cell) & BitOf(*core.at)) != 0) == skippedValue) {
            Skip(core);
        }
    }
};

template <Destination d>
ExecuteFunction RegisterFunction(const Processor& processor, Operation operation,
                                 std::size_t cell) {
    using enum Operation;
    switch (operation) {
        case Subwf:
            return FunctionFor<SubtractFromRegister<d>>(processor, cell);
        case Addwf:
            return FunctionFor<AddToRegister<d>>(processor, cell);
        case Decf:
            return FunctionFor<ComputeSettingZero<d, Decrement>>(processor, cell);
        case Iorwf:
            return FunctionFor<ComputeSettingZero<d, InclusiveOr>>(processor, cell);
        case Andwf:
            return FunctionFor<ComputeSettingZero<d, And>>(processor, cell);
        case Xorwf:
            return FunctionFor<ComputeSettingZero<d, ExclusiveOr>>(processor, cell);
        case Movf:
            return FunctionFor<ComputeSettingZero<d, Move>>(processor, cell);
        case Comf:
            return FunctionFor<ComputeSettingZero<d, Complement>>(processor, cell);
        case Incf:
            return FunctionFor<ComputeSettingZero<d, Increment>>(processor, cell);
        case Decfsz:
            return FunctionFor<ComputeSkippingIfZero<d, Decrement>>(processor, cell);
        case Incfsz:
            return FunctionFor<ComputeSkippingIfZero<d, Increment>>(processor, cell);
        case Rrf:
            return FunctionFor<Rotate<d, false>>(processor, cell);
        case Rlf:
            return FunctionFor<Rotate<d, true>>(processor, cell);
        default:
            return FunctionFor<SwapRegister<d>>(processor, cell);
    }
}

}  // namespace

ExecuteFunction RegisterInstruction(const Processor& processor, Operation operation, int word,
                                    std::size_t cell) {
    switch (operation) {
        case Operation::Movwf:
            return FunctionFor<Movwf>(processor, cell);
        case Operation::Clrf:
            return FunctionFor<Clrf>(processor, cell);
        case Operation::Bcf:
            return FunctionFor<WriteBit<false>>(processor, cell);
        case Operation::Bsf:
            return FunctionFor<WriteBit<true>>(processor, cell);
        case Operation::Btfsc:
            return FunctionFor<TestBit<false>>(processor, cell);
        case Operation::Btfss:
            return FunctionFor<TestBit<true>>(processor, cell);
        default:
            return isa::DestinationField(word) != 0
                       ? RegisterFunction<Destination::Register>(processor, operation, cell)
                       : RegisterFunction<Destination::W>(processor, operation, cell);
    }
}

}  // namespace corvane::core
