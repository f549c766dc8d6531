#include "core/cpu/instructions.h"

#include <algorithm>

#include "core/clock.h"
#include "core/cpu/flags.h"
#include "core/cpu/register_instructions.h"
#include "core/cpu/stack.h"
#include "isa/instruction_set.h"

namespace corvane::core {

namespace {

using isa::Operation;

// ---- literal instructions ----------------------------------------------------------------------

void Clrw(Processor& processor, const DecodedWord& /*decoded*/) {
    processor.state.w = 0;
    SetZeroFlag(processor.state, 0);
}

void Movlw(Processor& processor, const DecodedWord& decoded) {
    processor.state.w = decoded.operand;
}

// A peripheral waits for this literal.
void MovlwWatched(Processor& processor, const DecodedWord& decoded) {
    processor.state.w = decoded.operand;
    processor.dispatch.attention |= processor.dispatch.literalWatchers;
    EndSlice(processor.dispatch);
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
    EndSlice(processor.dispatch);
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
    EndSlice(processor.dispatch);
}

void Sleep(Processor& processor, const DecodedWord& decoded) {
    SetPowerFlags(processor.state, 0x10);  // NOT_TO set, NOT_PD clear
    StopHere(processor, decoded);
}

// ---- the table ---------------------------------------------------------------------------------

bool IsWatched(const Processor& processor, int literal) {
    return std::ranges::any_of(processor.peripherals, [literal](const Peripheral* peripheral) {
        return peripheral->watchesLiteral != nullptr && peripheral->watchesLiteral(literal);
    });
}

ExecuteFunction FunctionOf(const Processor& processor, Operation operation, int word) {
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
        case Operation::Clrw:
            return Clrw;
        case Operation::Call:
            return Call;
        case Operation::Goto:
            return Goto;
        case Operation::Movlw:
            return IsWatched(processor, isa::Literal8Field(word)) ? MovlwWatched : Movlw;
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
            return RegisterInstruction(operation, word);
    }
}

}  // namespace

DecodedWord DecodeForExecution(const Processor& processor, int word, int address) {
    const Operation operation = isa::Classify(word);
    const bool hasLiteral = operation != Operation::Unrecognized &&
                            isa::InstructionOf(operation).form == isa::OperandForm::Literal8;
    const int operand = hasLiteral ? isa::Literal8Field(word) : isa::RegisterField(word);
    return {.execute = FunctionOf(processor, operation, word),
            .word = static_cast<std::uint16_t>(word),
            .nextPc = static_cast<std::uint16_t>((address + 1) & kProgramCounterMask),
            .operand = static_cast<std::uint8_t>(operand),
            .bitMask = static_cast<std::uint8_t>(1 << isa::BitField(word)),
            .stopMarks = 0};
}

}  // namespace corvane::core
