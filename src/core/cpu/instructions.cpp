#include "core/cpu/instructions.h"

#include <algorithm>

#include "core/cpu/core.h"
#include "core/cpu/flags.h"
#include "core/cpu/interrupts.h"
#include "core/cpu/register_instructions.h"
#include "core/cpu/stack.h"
#include "isa/instruction_set.h"

namespace corvane::core {

namespace {

using isa::Operation;

// An instruction without register is a function over the core; this is its way into the table.
using Effect = void (*)(Core& core);

template <Effect effect>
void Execute(Processor& processor, DecodedWord* at, std::int64_t left, int w, int status,
             DecodedWord* /*last*/) {
    Core core{processor, at, left, w, status, at + 1};
    effect(core);
    return GoOn(core);
}

// ---- literal instructions ----------------------------------------------------------------------

void Clrw(Core& core) {
    core.w = 0;
    SetZeroFlag(core, 0);
}

void Movlw(Core& core) {
    core.w = core.at->operand;
}

// A peripheral waits for this literal.
void MovlwWatched(Core& core) {
    Movlw(core);
    core.processor.dispatch.attention |= core.processor.dispatch.literalWatchers;
    EndSlice(core);
}

template <Compute compute>
void LiteralSettingZero(Core& core) {
    core.w = compute(core.at->operand, core.w);
    SetZeroFlag(core, core.w);
}

void Addlw(Core& core) {
    const int w = core.w;
    const int sum = w + core.at->operand;
    core.w = sum & 0xFF;
    SetAddFlags(core, w, core.at->operand, sum);
}

void Sublw(Core& core) {
    core.w = Subtract(core, core.at->operand, core.w);
}

// ---- control -----------------------------------------------------------------------------------

void Goto(Core& core) {
    const int page = (core.processor.state.dataMemory[kPclath] & 0x18) * 0x100;
    JumpTo(core, page + core.at->operand);
}

// One that closes a loop and has come by often: in a function of its own, as it needs more of the
// host's registers.
[[gnu::noinline]] void GotoAskingForLook(Processor& processor, DecodedWord* at, std::int64_t left,
                                         int w, int status, DecodedWord* /*last*/) {
    Core core{processor, at, left, w, status, at + 1};
    Goto(core);
    Save(core);
    LookAtLoop(processor, at);
    TakeSliceEnd(core);
    return GoOn(core);
}

void GotoBack(Processor& processor, DecodedWord* at, std::int64_t left, int w, int status,
              DecodedWord* last) {
    if (--at->patience == 0) {
        return GotoAskingForLook(processor, at, left, w, status, last);
    }
    return Execute<Goto>(processor, at, left, w, status, last);
}

void Call(Core& core) {
    Push(core.processor.state, Pc(core));
    Goto(core);
}

void Return(Core& core) {
    JumpTo(core, Pop(core.processor.state));
}

void Retlw(Core& core) {
    Return(core);
    core.w = core.at->operand;
}

// The interrupt test follows the step.
void Retfie(Core& core) {
    Return(core);
    SetBits(core.processor.state.dataMemory[kIntcon], intcon::kGie);
    if (InterruptPending(core.processor)) {
        EndSlice(core);
    }
}

void Nop(Core& /*core*/) {}

void Clrwdt(Core& core) {
    SetStatusBits(core, status::kPowerFlags, status::kPowerFlags);
}

void StopHere(Core& core) {
    core.next = core.at;
    core.processor.state.stopRequested = true;
    EndSlice(core);
}

void Sleep(Core& core) {
    constexpr int kNotTo = 0x10;  // NOT_PD is cleared
    SetStatusBits(core, status::kPowerFlags, kNotTo);
    StopHere(core);
}

// ---- the table ---------------------------------------------------------------------------------

bool IsWatched(const Processor& processor, int literal) {
    return std::ranges::any_of(processor.peripherals, [literal](const Peripheral* peripheral) {
        return peripheral->watchesLiteral != nullptr && peripheral->watchesLiteral(literal);
    });
}

ExecuteFunction FunctionOf(const Processor& processor, Operation operation, int word, int address,
                           std::size_t cell) {
    switch (operation) {
        case Operation::Nop:
            return Execute<Nop>;
        case Operation::Return:
            return Execute<Return>;
        case Operation::Retfie:
            return Execute<Retfie>;
        case Operation::Sleep:
            return Execute<Sleep>;
        case Operation::Clrwdt:
            return Execute<Clrwdt>;
        case Operation::Clrw:
            return Execute<Clrw>;
        case Operation::Call:
            return Execute<Call>;
        case Operation::Goto:
            return isa::Address11Field(word) <= (address & 0x7FF) ? GotoBack : Execute<Goto>;
        case Operation::Movlw:
            return IsWatched(processor, isa::Literal8Field(word)) ? Execute<MovlwWatched>
                                                                  : Execute<Movlw>;
        case Operation::Retlw:
            return Execute<Retlw>;
        case Operation::Iorlw:
            return Execute<LiteralSettingZero<InclusiveOr>>;
        case Operation::Andlw:
            return Execute<LiteralSettingZero<And>>;
        case Operation::Xorlw:
            return Execute<LiteralSettingZero<ExclusiveOr>>;
        case Operation::Sublw:
            return Execute<Sublw>;
        case Operation::Addlw:
            return Execute<Addlw>;
        case Operation::Unrecognized:
            return Execute<StopHere>;
        default:
            return RegisterInstruction(processor, operation, word, cell);
    }
}

std::size_t OperandOf(const Processor& processor, Operation operation, int word, int bank) {
    if (operation == Operation::Unrecognized) {
        return 0;
    }
    switch (isa::InstructionOf(operation).form) {
        case isa::OperandForm::None:
            return 0;
        case isa::OperandForm::Literal8:
            return static_cast<std::size_t>(isa::Literal8Field(word));
        case isa::OperandForm::Address11:
            return static_cast<std::size_t>(isa::Address11Field(word));
        case isa::OperandForm::Register:
        case isa::OperandForm::RegisterDestination:
        case isa::OperandForm::RegisterBit:
            break;
    }
    const auto address = static_cast<std::size_t>(bank * 0x80 + isa::RegisterField(word));
    return processor.dispatch.resolvedCells[address];
}

}  // namespace

DecodedWord Decode(const Processor& processor, int word, int address, int bank) {
    const Operation operation = isa::Classify(word);
    const std::size_t operand = OperandOf(processor, operation, word, bank);
    const bool isBitInstruction =
        operation != Operation::Unrecognized &&
        isa::InstructionOf(operation).form == isa::OperandForm::RegisterBit;
    return {
        .execute = FunctionOf(processor, operation, word, address, operand),
        .word = static_cast<std::uint16_t>(word),
        .operand = static_cast<std::uint16_t>(operand),
        .bitOrLoop = static_cast<std::uint16_t>(isBitInstruction ? 1 << isa::BitField(word) : 0),
        .patience = kFirstPatience};
}

bool ClosesLoop(const DecodedWord& decoded) {
    return decoded.execute == GotoBack;
}

}  // namespace corvane::core
