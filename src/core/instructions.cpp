#include "core/instructions.h"

#include "core/data_memory.h"
#include "core/eeprom.h"
#include "core/ports.h"
#include "core/stack.h"
#include "core/timer0.h"
#include "isa/instruction_set.h"

namespace corvane::core {

namespace {

using isa::Operation;

enum class Destination { W, Register };

// ---- flags -------------------------------------------------------------------------------------

// C and Z of every sum of two bytes and a carry.
constexpr std::array<std::uint8_t, 512> CarryAndZeroOfSums() {
    std::array<std::uint8_t, 512> flags{};
    for (std::size_t sum = 0; sum < flags.size(); ++sum) {
        const int zero = (sum & 0xFF) == 0 ? status::kZ : 0;
        flags[sum] = static_cast<std::uint8_t>(zero | (sum > 0xFF ? status::kC : 0));
    }
    return flags;
}

constexpr std::array<std::uint8_t, 512> kCarryAndZero = CarryAndZeroOfSums();

void StoreFlags(ProcessorState& state, int mask, int flags) {
    std::uint8_t& cell = state.dataMemory[kStatus];
    cell = static_cast<std::uint8_t>((cell & ~mask) | flags);
}

void SetZeroFlag(ProcessorState& state, int result) {
    StoreFlags(state, status::kZ, kCarryAndZero[static_cast<std::size_t>(result)]);
}

// The sum a + b may exceed 255. A carry out of bit 3 shows as a flipped bit 4.
void SetAddFlags(ProcessorState& state, int a, int b, int sum) {
    const int digitCarry = ((a ^ b ^ sum) >> 3) & status::kDc;
    StoreFlags(state, status::kFlags, kCarryAndZero[static_cast<std::size_t>(sum)] | digitCarry);
}

// a - b is a + (255 - b) + 1, so that C and DC are set when there is no borrow.
int Subtract(ProcessorState& state, int a, int b) {
    const int complement = b ^ 0xFF;
    const int sum = a + complement + 1;
    SetAddFlags(state, a, complement, sum);
    return sum & 0xFF;
}

// ---- register instructions ---------------------------------------------------------------------

// A register whose cell has no effects besides holding its value.
struct PlainRegister {
    Processor& processor;
    std::size_t cell;

    int Read() const { return processor.state.dataMemory[cell]; }
    void Write(int value, FlagBits /*flagBits*/) const {
        processor.state.dataMemory[cell] =
            static_cast<std::uint8_t>(value & processor.description.writeMask[cell]);
    }
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

// An instruction is a struct with kFirstKind, the first kind of cell that is not plain for it, and
// a function template Execute(processor, register, decoded). The cases are functions of their own
// so that the plain one needs no stack frame.
template <typename Instruction>
[[gnu::noinline]] void ExecuteOnAnyCell(Processor& processor, const DecodedWord& decoded,
                                        std::size_t cell) {
    if (processor.dispatch.cellKinds[cell] == CellKind::DigitalPort) {
        Instruction::Execute(processor, DigitalPortRegister{processor, cell}, decoded);
    } else {
        Instruction::Execute(processor, AnyRegister{processor, cell}, decoded);
    }
}

template <typename Instruction>
[[gnu::noinline]] void ExecuteIndirectly(Processor& processor, const DecodedWord& decoded) {
    const std::size_t cell = IndirectCell(processor);
    if (processor.dispatch.cellKinds[cell] >= Instruction::kFirstKind) {
        ExecuteOnAnyCell<Instruction>(processor, decoded, cell);
    } else {
        Instruction::Execute(processor, PlainRegister{processor, cell}, decoded);
    }
}

template <typename Instruction>
void ExecuteOnRegister(Processor& processor, const DecodedWord& decoded) {
    const std::size_t cell = ResolveAddress(processor, decoded.operand);
    if (processor.dispatch.cellKinds[cell] < Instruction::kFirstKind) {
        Instruction::Execute(processor, PlainRegister{processor, cell}, decoded);
    } else if (cell == kIndirectCell) {
        ExecuteIndirectly<Instruction>(processor, decoded);
    } else {
        ExecuteOnAnyCell<Instruction>(processor, decoded, cell);
    }
}

template <Destination destination>
struct WithDestination {
    static constexpr CellKind kFirstKind =
        destination == Destination::Register ? kFirstKindWithWrite : kFirstKindWithRead;

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
constexpr int InclusiveOr(int f, int w) {
    return f | w;
}
constexpr int And(int f, int w) {
    return f & w;
}
constexpr int ExclusiveOr(int f, int w) {
    return f ^ w;
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

using Compute = int (*)(int f, int w);

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
    static constexpr CellKind kFirstKind = kFirstKindWithWrite;

    template <typename Register>
    static void Execute(Processor& processor, Register reg, const DecodedWord& /*decoded*/) {
        reg.Write(processor.state.w, FlagBits::AsWritten);
    }
};

struct Clrf {
    static constexpr CellKind kFirstKind = kFirstKindWithWrite;

    template <typename Register>
    static void Execute(Processor& processor, Register reg, const DecodedWord& /*decoded*/) {
        reg.Write(0, FlagBits::Kept);
        SetZeroFlag(processor.state, 0);
    }
};

// BCF, BSF.
template <bool value>
struct WriteBit {
    static constexpr CellKind kFirstKind = kFirstKindWithWrite;

    template <typename Register>
    static void Execute(Processor& /*processor*/, Register reg, const DecodedWord& decoded) {
        const int a = reg.Read();
        reg.Write(value ? a | decoded.bitMask : a & ~decoded.bitMask, FlagBits::AsWritten);
    }
};

// BTFSC, BTFSS.
template <bool skippedValue>
struct TestBit {
    static constexpr CellKind kFirstKind = kFirstKindWithRead;

    template <typename Register>
    static void Execute(Processor& processor, Register reg, const DecodedWord& decoded) {
        if (((reg.Read() & decoded.bitMask) != 0) == skippedValue) {
            Skip(processor);
        }
    }
};

// ---- literal instructions ----------------------------------------------------------------------

void Clrw(Processor& processor, const DecodedWord& /*decoded*/) {
    processor.state.w = 0;
    SetZeroFlag(processor.state, 0);
}

void Movlw(Processor& processor, const DecodedWord& decoded) {
    processor.state.w = decoded.operand;
}

void MovlwBeginningUnlock(Processor& processor, const DecodedWord& decoded) {
    processor.state.w = decoded.operand;
    RaiseAttention(processor.dispatch, kEepromAttention);
}

template <Compute compute>
void LiteralSettingZero(Processor& processor, const DecodedWord& decoded) {
    processor.state.w = compute(decoded.operand, processor.state.w);
    SetZeroFlag(processor.state, processor.state.w);
}

void Addlw(Processor& processor, const DecodedWord& decoded) {
    const int w = processor.state.w;
    const int sum = w + decoded.operand;
    processor.state.w = sum & 0xFF;
    SetAddFlags(processor.state, w, decoded.operand, sum);
}

void Sublw(Processor& processor, const DecodedWord& decoded) {
    processor.state.w = Subtract(processor.state, decoded.operand, processor.state.w);
}

// ---- control -----------------------------------------------------------------------------------

int PageAddress(const ProcessorState& state, int target) {
    return (state.dataMemory[kPclath] & 0x18) * 0x100 + target;
}

void Goto(Processor& processor, const DecodedWord& decoded) {
    ExtraCycle(processor);
    processor.state.pc = PageAddress(processor.state, isa::Address11Field(decoded.word));
}

void Call(Processor& processor, const DecodedWord& decoded) {
    Push(processor.state, processor.state.pc);
    Goto(processor, decoded);
}

void Return(Processor& processor, const DecodedWord& /*decoded*/) {
    ExtraCycle(processor);
    processor.state.pc = Pop(processor.state);
}

void Retlw(Processor& processor, const DecodedWord& decoded) {
    Return(processor, decoded);
    processor.state.w = decoded.operand;
}

void Retfie(Processor& processor, const DecodedWord& decoded) {
    Return(processor, decoded);
    SetBits(processor.state.dataMemory[kIntcon], intcon::kGie);
    RaiseAttention(processor.dispatch, kInterruptAttention);
}

void Nop(Processor& /*processor*/, const DecodedWord& /*decoded*/) {}

void SetPowerFlags(ProcessorState& state, int flags) {
    StoreFlags(state, status::kPowerFlags, flags);
}

void Clrwdt(Processor& processor, const DecodedWord& /*decoded*/) {
    SetPowerFlags(processor.state, status::kPowerFlags);
}

// Stops on the word: pc was moved on already.
void StopHere(Processor& processor, const DecodedWord& decoded) {
    ProcessorState& state = processor.state;
    state.pc = (decoded.nextPc - 1) & kProgramCounterMask;
    state.stopRequested = true;
    RaiseAttention(processor.dispatch, 0);
}

void Sleep(Processor& processor, const DecodedWord& decoded) {
    SetPowerFlags(processor.state, 0x10);  // NOT_TO set, NOT_PD clear
    StopHere(processor, decoded);
}

// ---- the table ---------------------------------------------------------------------------------

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

ExecuteFunction FunctionOf(Operation operation, int word) {
    switch (operation) {
        case Operation::Nop:
            return Nop;
        case Operation::Return:
            return Return;
        case Operation::Retfie:
            return Retfie;
        case Operation::Sleep:
            return Sleep;
        case Operation::Clrwdt:
            return Clrwdt;
        case Operation::Movwf:
            return ExecuteOnRegister<Movwf>;
        case Operation::Clrw:
            return Clrw;
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
        case Operation::Call:
            return Call;
        case Operation::Goto:
            return Goto;
        case Operation::Movlw:
            return BeginsUnlock(word) ? MovlwBeginningUnlock : Movlw;
        case Operation::Retlw:
            return Retlw;
        case Operation::Iorlw:
            return LiteralSettingZero<InclusiveOr>;
        case Operation::Andlw:
            return LiteralSettingZero<And>;
        case Operation::Xorlw:
            return LiteralSettingZero<ExclusiveOr>;
        case Operation::Sublw:
            return Sublw;
        case Operation::Addlw:
            return Addlw;
        case Operation::Unrecognized:
            return StopHere;
        default:
            return isa::DestinationField(word) != 0
                       ? RegisterFunction<Destination::Register>(operation)
                       : RegisterFunction<Destination::W>(operation);
    }
}

}  // namespace

DecodedWord DecodeForExecution(int word, int address) {
    const Operation operation = isa::Classify(word);
    const bool hasLiteral = operation != Operation::Unrecognized &&
                            isa::InstructionOf(operation).form == isa::OperandForm::Literal8;
    const int operand = hasLiteral ? isa::Literal8Field(word) : isa::RegisterField(word);
    return {.execute = FunctionOf(operation, word),
            .word = static_cast<std::uint16_t>(word),
            .nextPc = static_cast<std::uint16_t>((address + 1) & kProgramCounterMask),
            .operand = static_cast<std::uint8_t>(operand),
            .bitMask = static_cast<std::uint8_t>(1 << isa::BitField(word)),
            .stopMarks = 0};
}

bool ReadsRegister(int word) {
    const Operation operation = isa::Classify(word);
    if (operation == Operation::Unrecognized) {
        return false;
    }
    const isa::OperandForm form = isa::InstructionOf(operation).form;
    return form == isa::OperandForm::RegisterDestination || form == isa::OperandForm::RegisterBit;
}

}  // namespace corvane::core
