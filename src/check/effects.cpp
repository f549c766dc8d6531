#include "check/effects.h"

#include "isa/instruction_set.h"

namespace corvane::check {

namespace {

using isa::OperandForm;
using isa::Operation;

OperandForm FormOf(int word) {
    const Operation operation = isa::Classify(word);
    return operation == Operation::Unrecognized ? OperandForm::None
                                                : isa::InstructionOf(operation).form;
}

bool TestsBit(Operation operation) {
    return operation == Operation::Btfsc || operation == Operation::Btfss;
}

bool ReadsW(Operation operation) {
    switch (operation) {
        case Operation::Movwf:
        case Operation::Addwf:
        case Operation::Subwf:
        case Operation::Andwf:
        case Operation::Iorwf:
        case Operation::Xorwf:
        case Operation::Addlw:
        case Operation::Sublw:
        case Operation::Andlw:
        case Operation::Iorlw:
        case Operation::Xorlw:
            return true;
        default:
            return false;
    }
}

bool WritesW(int word) {
    const OperandForm form = FormOf(word);
    return form == OperandForm::Literal8 || isa::Classify(word) == Operation::Clrw ||
           (form == OperandForm::RegisterDestination && isa::DestinationField(word) == 0);
}

// MOVWF and CLRF do not look at what the register held.
bool ReadsRegister(Operation operation, OperandForm form) {
    return form == OperandForm::RegisterDestination ||
           (form == OperandForm::RegisterBit && TestsBit(operation));
}

Resources OfStatusBit(int bit) {
    switch (bit) {
        case 0:
            return kCarry;
        case 1:
            return kDigitCarry;
        case 2:
            return kZero;
        case kBankBit:
            return kRp0;
        case kBankBit + 1:
            return kRp1;
        default:
            return 0;
    }
}

Resources OfPclathBit(int bit) {
    return ((1 << bit) & kPageBits) != 0 ? kPclathPage : kPclathBlock;
}

// The resource that the operand f names, or the bit of it.
Resources Named(int f, OperandForm form, int bit) {
    const bool isBit = form == OperandForm::RegisterBit;
    switch (f) {
        case kStatus:
            return isBit ? OfStatusBit(bit) : kFlags | kRp0 | kRp1;
        case kFsr:
            return kFileSelect;
        case kPclath:
            return isBit ? OfPclathBit(bit) : kPclathPage | kPclathBlock;
        default:
            return 0;
    }
}

// The bank bits that decide which register an access to f reaches.
Resources BankBitsNeeded(int f, const ChipState& state,
                         const models::ModelDescription& description) {
    const int bank = (state.bank.value & kBankBits) >> kBankBit;
    const auto cell = [&](int inBank) {
        return description.addressMap[static_cast<std::size_t>(inBank * 0x80 + f)];
    };
    return (cell(bank) != cell(bank ^ 1) ? kRp0 : 0) | (cell(bank) != cell(bank ^ 2) ? kRp1 : 0);
}

}  // namespace

bool NamesRegister(int word) {
    const OperandForm form = FormOf(word);
    return form == OperandForm::Register || form == OperandForm::RegisterDestination ||
           form == OperandForm::RegisterBit;
}

bool WritesRegister(int word) {
    const Operation operation = isa::Classify(word);
    switch (FormOf(word)) {
        case OperandForm::Register:
            return true;
        case OperandForm::RegisterDestination:
            return isa::DestinationField(word) == 1;
        case OperandForm::RegisterBit:
            return !TestsBit(operation);
        default:
            return false;
    }
}

bool IsReturn(int word) {
    switch (isa::Classify(word)) {
        case Operation::Return:
        case Operation::Retlw:
        case Operation::Retfie:
            return true;
        default:
            return false;
    }
}

Resources FlagsOf(int word) {
    switch (isa::Classify(word)) {
        case Operation::Addwf:
        case Operation::Subwf:
        case Operation::Addlw:
        case Operation::Sublw:
            return kFlags;
        case Operation::Rlf:
        case Operation::Rrf:
            return kCarry;
        case Operation::Andwf:
        case Operation::Clrf:
        case Operation::Clrw:
        case Operation::Comf:
        case Operation::Decf:
        case Operation::Incf:
        case Operation::Iorwf:
        case Operation::Movf:
        case Operation::Xorwf:
        case Operation::Andlw:
        case Operation::Iorlw:
        case Operation::Xorlw:
            return kZero;
        default:
            return 0;
    }
}

Effects EffectsOf(int word, const ChipState& state, const models::ModelDescription& description,
                  bool hasPages) {
    const Operation operation = isa::Classify(word);
    const OperandForm form = FormOf(word);
    Effects effects;
    effects.reads = ReadsW(operation) ? kWorking : 0;
    effects.writes = FlagsOf(word) | (WritesW(word) ? kWorking : 0);
    if (operation == Operation::Rlf || operation == Operation::Rrf) {
        effects.reads |= kCarry;
    }
    if (form == OperandForm::Address11 && hasPages) {
        effects.reads |= kPclathPage;
    }
    if (!NamesRegister(word)) {
        return effects;
    }
    const int f = isa::RegisterField(word);
    const Resources named = Named(f, form, isa::BitField(word));
    effects.reads |= BankBitsNeeded(f, state, description);
    effects.reads |= f == kIndf ? kFileSelect : 0;
    effects.reads |= ReadsRegister(operation, form) ? named : 0;
    effects.writes |= WritesRegister(word) ? named : 0;
    if (f == kPcl && WritesRegister(word)) {
        effects.reads |= kPclathPage | kPclathBlock;
    }
    return effects;
}

}  // namespace corvane::check
