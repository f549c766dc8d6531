#include "check/chip_state.h"

#include "isa/instruction_set.h"

namespace corvane::check {

namespace {

using isa::Operation;

constexpr int kOptionWord = 0x0062;     // OPTION and TRIS are no rows of the instruction table, but
constexpr int kFirstTrisWord = 0x0065;  // the chips execute them
constexpr int kLastTrisWord = 0x0067;

bool IsOptionOrTris(int word) {
    return word == kOptionWord || (word >= kFirstTrisWord && word <= kLastTrisWord);
}

// What an instruction finds in the register f.
KnownByte RegisterContent(int f, int address, const ChipState& state) {
    switch (f) {
        case kPcl:
            return Known(address + 1);
        case kStatus:
            return state.bank;
        case kPclath:
            return state.pclath;
        case kIntcon:
            return KnownBits((state.gie ? 0 : kGie) | (state.enables ? 0 : kEnables), 0);
        default:
            return {};
    }
}

// What an instruction with a register and a destination makes of the register's content.
KnownByte Result(Operation operation, KnownByte f, KnownByte w) {
    switch (operation) {
        case Operation::Movf:
            return f;
        case Operation::Addwf:
            return Plus(f, w);
        case Operation::Subwf:
            return Minus(f, w);
        case Operation::Andwf:
            return And(f, w);
        case Operation::Iorwf:
            return Or(f, w);
        case Operation::Xorwf:
            return Xor(f, w);
        case Operation::Comf:
            return Xor(f, Known(0xFF));
        case Operation::Incf:
        case Operation::Incfsz:
            return Plus(f, Known(1));
        case Operation::Decf:
        case Operation::Decfsz:
            return Minus(f, Known(1));
        case Operation::Swapf:
            return Swapped(f);
        default:
            return {};  // RLF and RRF take in the carry
    }
}

KnownByte LiteralResult(Operation operation, KnownByte w, int literal) {
    switch (operation) {
        case Operation::Movlw:
        case Operation::Retlw:
            return Known(literal);
        case Operation::Iorlw:
            return Or(w, Known(literal));
        case Operation::Andlw:
            return And(w, Known(literal));
        case Operation::Xorlw:
            return Xor(w, Known(literal));
        case Operation::Sublw:
            return Minus(Known(literal), w);
        default:
            return Plus(w, Known(literal));
    }
}

void WriteIntcon(KnownByte content, bool mayRestoreGie, ChipState& state) {
    const bool isGieKnown = (content.known & kGie) != 0;
    state.byReturn = !isGieKnown && state.byReturn;
    state.gie = isGieKnown ? (content.value & kGie) != 0 : state.gie || mayRestoreGie;
    state.enables = (content.value & kEnables) != 0 || (content.known & kEnables) != kEnables;
}

void Write(int f, KnownByte content, bool mayRestoreGie, Step& step) {
    switch (f) {
        case kPcl:
            step.flow = Flow::Computed;
            step.counter = content;
            break;
        case kStatus:
            step.next.bank = Bits(content, kBankBits);
            break;
        case kPclath:
            step.next.pclath = And(content, Known(kPclathBits));
            break;
        case kIntcon:
            WriteIntcon(content, mayRestoreGie, step.next);
            break;
        default:
            break;
    }
}

// The branches of a bit test. Each of them knows the bit.
void TestBit(int f, int bit, bool skipsWhenSet, Step& step) {
    KnownByte ChipState::*tested = nullptr;
    if (f == kStatus && ((1 << bit) & kBankBits) != 0) {
        tested = &ChipState::bank;
    } else if (f == kPclath) {
        tested = &ChipState::pclath;
    } else {
        return;
    }
    const KnownByte mask = KnownBits(1 << bit, 0xFF);
    const KnownByte content = step.next.*tested;
    const bool isKnown = (content.known & mask.known) != 0;
    const bool isSet = (content.value & mask.known) != 0;
    step.canSkip = !isKnown || isSet == skipsWhenSet;
    step.canGoOn = !isKnown || isSet != skipsWhenSet;
    const auto with = [&](bool set) {
        return KnownByte{static_cast<std::uint8_t>(content.known | mask.known),
                         static_cast<std::uint8_t>(set ? content.value | mask.known
                                                       : content.value & ~mask.known)};
    };
    step.skipped.*tested = with(skipsWhenSet);
    step.next.*tested = with(!skipsWhenSet);
}

void StepOverRegister(Operation operation, int word, int address, bool mayRestoreGie, Step& step) {
    const int f = isa::RegisterField(word);
    const KnownByte content = RegisterContent(f, address, step.next);
    const KnownByte result = Result(operation, content, step.next.w);
    if (isa::DestinationField(word) == 0) {
        step.next.w = result;
    } else {
        Write(f, result, mayRestoreGie, step);
    }
    if (operation == Operation::Decfsz || operation == Operation::Incfsz) {
        step.flow = Flow::Skip;
    }
    step.skipped = step.next;
}

void StepOverBit(Operation operation, int word, int address, bool mayRestoreGie, Step& step) {
    const int f = isa::RegisterField(word);
    const int mask = 1 << isa::BitField(word);
    const KnownByte content = RegisterContent(f, address, step.next);
    switch (operation) {
        case Operation::Bsf:
            Write(f, Or(content, Known(mask)), mayRestoreGie, step);
            break;
        case Operation::Bcf:
            Write(f, And(content, Known(~mask)), mayRestoreGie, step);
            break;
        default:
            step.flow = Flow::Skip;
            TestBit(f, isa::BitField(word), operation == Operation::Btfss, step);
            break;
    }
}

void StepOverControl(Operation operation, int word, Step& step) {
    switch (operation) {
        case Operation::Call:
            step.flow = Flow::Call;
            break;
        case Operation::Goto:
            step.flow = Flow::Goto;
            break;
        case Operation::Retfie:
            step.next.byReturn = !step.next.gie || step.next.byReturn;
            step.next.gie = true;
            step.flow = Flow::Return;
            break;
        case Operation::Return:
            step.flow = Flow::Return;
            break;
        case Operation::Sleep:
            step.flow = Flow::Sleep;
            break;
        case Operation::Clrw:
            step.next.w = Known(0);
            break;
        case Operation::Unrecognized:
            step.flow = IsOptionOrTris(word) ? Flow::Next : Flow::End;
            break;
        default:
            break;  // NOP and CLRWDT
    }
}

}  // namespace

ChipState StateAfterReset() {
    ChipState state;
    state.pclath = Known(0);
    state.bank = KnownBits(kBankBits, 0);
    return state;
}

Step StepOver(int word, int address, const ChipState& state, bool mayRestoreGie) {
    Step step;
    step.next = state;
    step.skipped = state;
    const Operation operation = isa::Classify(word);
    const isa::OperandForm form = operation == Operation::Unrecognized
                                      ? isa::OperandForm::None
                                      : isa::InstructionOf(operation).form;
    switch (form) {
        case isa::OperandForm::Register:
            Write(isa::RegisterField(word), operation == Operation::Movwf ? state.w : Known(0),
                  mayRestoreGie, step);
            break;
        case isa::OperandForm::RegisterDestination:
            StepOverRegister(operation, word, address, mayRestoreGie, step);
            break;
        case isa::OperandForm::RegisterBit:
            StepOverBit(operation, word, address, mayRestoreGie, step);
            break;
        case isa::OperandForm::Literal8:
            step.next.w = LiteralResult(operation, state.w, isa::Literal8Field(word));
            step.flow = operation == Operation::Retlw ? Flow::Return : Flow::Next;
            break;
        default:
            StepOverControl(operation, word, step);
            break;
    }
    return step;
}

}  // namespace corvane::check
