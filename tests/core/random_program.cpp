#include "core/random_program.h"

#include <array>
#include <cstddef>

#include "isa/instruction_set.h"

namespace corvane::core {

namespace {

using isa::Operation;
using models::ModelFamily;

constexpr int kTmr0 = 0x001;
constexpr int kPcl = 0x002;
constexpr int kStatus = 0x003;
constexpr int kFsr = 0x004;
constexpr int kPclath = 0x00A;
constexpr int kIntcon = 0x00B;
constexpr int kPir1 = 0x00C;
constexpr int kPir2 = 0x00D;
constexpr int kAdcon0 = 0x01F;
constexpr int kCmcon = 0x01F;
constexpr int kOptionReg = 0x081;
constexpr int kTrisa = 0x085;
constexpr int kTrise = 0x089;
constexpr int kPie1 = 0x08C;
constexpr int kPie2 = 0x08D;
constexpr int kAdcon1 = 0x09F;
constexpr int kVrcon = 0x09F;

constexpr int kGpr = 0x20;  // a general purpose register in bank 0 of every model

const std::vector<int>& SpecialRegisters(ModelFamily family) {
    static const std::vector<int> k8x = {0x000, 0x001, 0x002, 0x003, 0x004, 0x005, 0x006,
                                         0x008, 0x009, 0x00A, 0x00B, 0x080, 0x081, 0x082,
                                         0x083, 0x085, 0x086, 0x088, 0x089, 0x106, 0x186};
    static const std::vector<int> k87x = {
        0x000, 0x001, 0x002, 0x003, 0x004, 0x005, 0x006, 0x007, 0x008, 0x009, 0x00A,
        0x00B, 0x00C, 0x00D, 0x01E, 0x01F, 0x081, 0x083, 0x085, 0x086, 0x087, 0x088,
        0x089, 0x08C, 0x08D, 0x09E, 0x09F, 0x101, 0x106, 0x10C, 0x10D, 0x10E, 0x10F,
        0x181, 0x183, 0x186, 0x18C, 0x18D, 0x01F, 0x09F, 0x18C, 0x085, 0x089};
    static const std::vector<int> k62x = {0x000, 0x001, 0x002, 0x003, 0x004, 0x005, 0x006, 0x00A,
                                          0x00B, 0x00C, 0x01F, 0x081, 0x083, 0x085, 0x086, 0x08C,
                                          0x08E, 0x09A, 0x09B, 0x09C, 0x09D, 0x09F, 0x101, 0x106,
                                          0x181, 0x186, 0x01F, 0x01F, 0x09F, 0x085};
    switch (family) {
        case ModelFamily::Pic16F8x:
            return k8x;
        case ModelFamily::Pic16F62x:
            return k62x;
        default:
            return k87x;
    }
}

class Generator {
  public:
    Generator(const models::Model& model, Random& random)
        : model_(model), eeprom_(models::TraitsOf(model.family)), random_(random) {}

    std::vector<std::uint16_t> Generate() {
        words_.resize(4);
        Handler();
        words_[0] = Word(Operation::Goto, Here());
        words_[1] = words_[2] = words_[3] = Word(Operation::Nop, 0);
        WriteRegister(kOptionReg);
        EnableInterrupts();
        while (Here() < model_.programWords) {
            if ((Here() & 0xFF) >= 0xF8) {
                SkipAfterJump();
            }
            Fragment();
        }
        words_.resize(static_cast<std::size_t>(model_.programWords));
        return words_;
    }

  private:
    int Here() const { return static_cast<int>(words_.size()); }

    static std::uint16_t Word(Operation operation, int operands) {
        return static_cast<std::uint16_t>(isa::InstructionOf(operation).firstWord | operands);
    }
    void Emit(Operation operation, int operands = 0) {
        words_.push_back(Word(operation, operands));
    }
    void EmitBit(Operation operation, int f, int bit) { Emit(operation, (bit << 7) | (f & 0x7F)); }

    // Two bits of MOVLW's word mean nothing.
    void Movlw(int value) {
        Emit(Operation::Movlw, value | (random_.Chance(25) ? random_.Below(4) << 8 : 0));
    }

    // Operands.

    int FileAddress() {
        const int kind = random_.Below(100);
        if (kind < 40) {
            return random_.Pick(SpecialRegisters(model_.family)) & 0x7F;
        }
        if (kind < 80) {
            return kGpr + random_.Below(8);
        }
        return kind < 85 ? 0x70 + random_.Below(16) : random_.Below(128);
    }

    // Mostly forwards, so that a program does not end in a loop at once.
    int NearbyAddress() {
        const int distance = random_.Chance(90) ? 2 + random_.Below(16) : -random_.Below(8);
        return (Here() + distance) & 0x7FF;
    }

    int ValueFor(int address) {
        const int value = random_.Byte();
        switch (address) {
            case kTmr0:
                return random_.Chance(60) ? 0xF0 | value : value;
            case kOptionReg:  // mostly the instruction clock, and often the prescaler
                return value & (random_.Chance(75) ? 0xDF : 0xFF) &
                       (random_.Chance(60) ? 0xF7 : 0xFF);
            case kIntcon:
                return random_.Chance(60) ? 0x80 | (value & 0x78) : value;
            case kPclath:
                return random_.Chance(90) ? (value & 0x1F) * 256 % model_.programWords / 256
                                          : value;
            case kAdcon0:  // and CMCON
                return models::IsPic16F87x(model_.family) && random_.Chance(70) ? value | 0x05
                                                                                : value;
            case kVrcon:  // and ADCON1
                return random_.Chance(60) ? value | 0x80 : value;
            default:
                break;
        }
        if (address >= kTrisa && address <= kTrise) {
            return random_.Chance(40) ? 0xFF : value;
        }
        return value;
    }

    // Fragments.

    void Fragment() {
        const int kind = random_.Below(100);
        if (kind < 30) {
            Instructions(1 + random_.Below(6));
        } else if (kind < 45) {
            WriteRegister(RandomSpecialRegister(model_.family, random_));
        } else if (kind < 57) {
            TouchRegister(RandomSpecialRegister(model_.family, random_));
        } else if (kind < 63) {
            EepromWrite();
        } else if (kind < 66) {
            EepromRead();
        } else if (kind < 73) {
            AnalogSequence();
        } else if (kind < 79) {
            Indirect();
        } else if (kind < 82) {
            Loop();
        } else if (kind < 86) {
            Subroutine();
        } else if (kind < 88) {
            ComputedJump();
        } else if (kind < 93) {
            WriteRegister(kOptionReg);
            WriteRegister(kTmr0);
        } else if (kind < 98) {
            EnableInterrupts();
        } else {
            Rarity();
        }
    }

    void Instructions(int count) {
        for (int i = 0; i < count; ++i) {
            AnyInstruction();
        }
    }

    void AnyInstruction() {
        const auto operation = static_cast<Operation>(random_.Below(isa::kInstructionCount));
        switch (isa::InstructionOf(operation).form) {
            case isa::OperandForm::None:
                if (operation == Operation::Nop || operation == Operation::Clrwdt ||
                    operation == Operation::Clrw || random_.Chance(15)) {
                    Emit(operation == Operation::Sleep ? Operation::Return : operation);
                }
                break;
            case isa::OperandForm::Address11:
                Emit(operation, random_.Chance(95) ? NearbyAddress() : random_.Below(0x800));
                break;
            case isa::OperandForm::Literal8:
                if (operation != Operation::Retlw || random_.Chance(20)) {
                    Emit(operation, random_.Byte());
                }
                break;
            default: {
                const int f = FileAddress();
                if ((f & 0x7F) != kPcl || random_.Chance(15)) {
                    Emit(operation, f | (random_.Byte() << 7 & OperandMask(operation)));
                }
            }
        }
    }

    // The bits of destination or bit number in a register instruction's word.
    static int OperandMask(Operation operation) {
        switch (isa::InstructionOf(operation).form) {
            case isa::OperandForm::RegisterBit:
                return 0x380;
            case isa::OperandForm::RegisterDestination:
                return 0x80;
            default:
                return 0;
        }
    }

    // Sets RP0 and RP1, mostly as needed and as far as the bank is another than the last one.
    void SelectBankOf(int address) {
        const int bank = (address >> 7) & 3;
        for (int bit = 0; bit <= 1; ++bit) {
            const bool known = ((bank ^ selectedBank_) & (1 << bit)) == 0;
            const bool value = ((bank & (1 << bit)) != 0) != random_.Chance(2);
            if (random_.Chance(known ? 15 : 97)) {
                EmitBit(value ? Operation::Bsf : Operation::Bcf, kStatus, 5 + bit);
            }
        }
        selectedBank_ = bank;
    }

    void WriteLiteral(int address, int value) {
        SelectBankOf(address);
        Movlw(value);
        Emit(Operation::Movwf, address & 0x7F);
    }

    void WriteRegister(int address) {
        if (address == kPcl) {
            ComputedJump();
        } else {
            WriteLiteral(address, ValueFor(address));
        }
    }

    void TouchRegister(int address) {
        static constexpr std::array kOperations = {
            Operation::Bsf,    Operation::Bcf,   Operation::Btfsc, Operation::Btfss,
            Operation::Incf,   Operation::Decf,  Operation::Movf,  Operation::Comf,
            Operation::Incfsz, Operation::Iorwf, Operation::Xorwf, Operation::Rlf,
            Operation::Clrf,   Operation::Bsf,   Operation::Bcf,   Operation::Addwf};
        const Operation operation = random_.Pick(kOperations);
        if ((address & 0x7F) != kPcl || random_.Chance(25)) {
            SelectBankOf(address);
            Emit(operation, (address & 0x7F) | (random_.Byte() << 7 & OperandMask(operation)));
        }
    }

    // The unlock sequence, now and then with something wrong at any of its five places.
    void EepromWrite() {
        static constexpr std::array kAddresses = {0x00, 0x01, 0x3F, 0x40, 0x7F, 0x80, 0xFF};
        if (random_.Chance(80)) {
            WriteLiteral(eeprom_.eeadr,
                         random_.Chance(50) ? random_.Pick(kAddresses) : random_.Byte());
            WriteLiteral(eeprom_.eedata, random_.Byte());
        }
        SelectBankOf(eeprom_.eecon1);
        SelectEepromOrProgramMemory();
        if (random_.Chance(90)) {
            EmitBit(Operation::Bsf, eeprom_.eecon1, 2);
        }
        if (random_.Chance(70)) {
            EmitBit(Operation::Bcf, kIntcon, 7);
        }
        Disturb();
        Movlw(0x55);
        Disturb();
        Emit(Operation::Movwf, eeprom_.eecon2 & 0x7F);
        Disturb();
        Movlw(random_.Chance(95) ? 0xAA : 0x55);
        Disturb();
        Emit(Operation::Movwf, eeprom_.eecon2 & 0x7F);
        Disturb();
        if (random_.Chance(90)) {
            EmitBit(Operation::Bsf, eeprom_.eecon1, 1);
        }
        if (random_.Chance(10)) {
            EmitBit(Operation::Btfsc, eeprom_.eecon1, 1);
            Emit(Operation::Goto, (Here() - 1) & 0x7FF);
        } else {
            Instructions(random_.Below(6));
        }
    }

    void Disturb() {
        const int kind = random_.Below(100);
        if (kind < 3) {
            AnyInstruction();
        } else if (kind < 5) {
            SelectBankOf(RandomSpecialRegister(model_.family, random_));
        } else if (kind < 6) {
            Movlw(0x55);
        }
    }

    // EEPGD, which is no bit of the smaller families.
    void SelectEepromOrProgramMemory() {
        EmitBit(random_.Chance(85) ? Operation::Bcf : Operation::Bsf, eeprom_.eecon1, 7);
    }

    void EepromRead() {
        if (random_.Chance(70)) {
            WriteLiteral(eeprom_.eeadr, random_.Byte() & (random_.Chance(70) ? 0x3F : 0xFF));
        }
        SelectBankOf(eeprom_.eecon1);
        SelectEepromOrProgramMemory();
        EmitBit(Operation::Bsf, eeprom_.eecon1, 0);
        SelectBankOf(eeprom_.eedata);
        Emit(Operation::Movf, eeprom_.eedata & 0x7F);
    }

    void AnalogSequence() {
        if (models::IsPic16F87x(model_.family)) {
            Conversion();
        } else if (model_.family == ModelFamily::Pic16F62x) {
            WriteRegister(kVrcon);
            WriteRegister(kCmcon);
            Instructions(random_.Below(4));
        } else {
            WriteRegister(kTrisa + random_.Below(2));
        }
    }

    void Conversion() {
        if (random_.Chance(50)) {
            WriteLiteral(kAdcon1, random_.Byte());
        }
        WriteLiteral(kAdcon0, (random_.Byte() & 0xF8) | (random_.Chance(90) ? 1 : 0));
        EmitBit(Operation::Bsf, kAdcon0, 2);
        if (random_.Chance(10)) {
            EmitBit(Operation::Btfsc, kAdcon0, 2);
            Emit(Operation::Goto, (Here() - 1) & 0x7FF);
        } else {
            Instructions(random_.Below(8));
        }
        if (random_.Chance(30)) {
            EmitBit(Operation::Bcf, kAdcon0, random_.Chance(50) ? 2 : 0);
        }
    }

    void Indirect() {
        static constexpr std::array kOperations = {
            Operation::Movwf, Operation::Movf, Operation::Incf,  Operation::Clrf,
            Operation::Bsf,   Operation::Bcf,  Operation::Xorwf, Operation::Btfss};
        const int address =
            random_.Chance(70) ? RandomSpecialRegister(model_.family, random_) : random_.Below(512);
        EmitBit((address & 0x100) != 0 ? Operation::Bsf : Operation::Bcf, kStatus, 7);
        Movlw(address & 0xFF);
        Emit(Operation::Movwf, kFsr);
        Movlw(ValueFor(address));
        for (int i = random_.Below(3); i >= 0; --i) {
            const Operation operation = random_.Pick(kOperations);
            if ((address & 0x7F) != kPcl || random_.Chance(20)) {
                Emit(operation, random_.Byte() << 7 & OperandMask(operation));
            }
        }
    }

    void Loop() {
        const int counter = kGpr + random_.Below(8);
        Movlw(1 + random_.Below(4));
        Emit(Operation::Movwf, counter);
        const int start = Here();
        Instructions(1 + random_.Below(3));
        if (random_.Chance(50)) {
            Emit(Operation::Decfsz, counter | 0x80);
        } else {
            Emit(Operation::Incfsz, counter | 0x80);
        }
        Emit(Operation::Goto, start & 0x7FF);
    }

    void Subroutine() {
        const int kind = random_.Below(3);
        if (kind == 0) {
            Emit(Operation::Call, (Here() + 2) & 0x7FF);  // over the next word and back to it
            Emit(Operation::Goto, (Here() + 4) & 0x7FF);
            Instructions(2);
            Emit(random_.Chance(50) ? Operation::Return : Operation::Retlw);
        } else {
            Emit(Operation::Call, random_.Chance(70) ? NearbyAddress() : random_.Below(0x800));
        }
    }

    void ComputedJump() {
        const int target =
            random_.Chance(80) ? Here() + 4 + random_.Below(6) : random_.Below(model_.programWords);
        Movlw(target >> 8 & 0x1F);
        Emit(Operation::Movwf, kPclath);
        Movlw(target & 0xFF);
        Emit(Operation::Movwf, kPcl);
    }

    // At the start of a page PCL reads 1, so that DECFSZ jumps and skips.
    void SkipAfterJump() {
        while ((Here() & 0xFF) != 0) {
            Emit(random_.Chance(50) ? Operation::Clrwdt : Operation::Nop);
        }
        Emit(Operation::Decfsz, kPcl | 0x80);
    }

    void EnableInterrupts() {
        if (model_.family != ModelFamily::Pic16F8x) {
            WriteRegister(kPie1);
        }
        if (models::IsPic16F87x(model_.family)) {
            WriteRegister(kPie2);
        }
        WriteRegister(kIntcon);
    }

    void Rarity() {
        switch (random_.Below(4)) {
            case 0:
                Emit(Operation::Sleep);
                break;
            case 1:
                words_.push_back(0x3B00);
                break;
            case 2:
                words_.push_back(0x0001);
                break;
            default:
                words_.push_back(static_cast<std::uint16_t>(random_.Below(isa::kWordCount)));
        }
    }

    void Handler() {
        Instructions(random_.Below(4));
        for (int flag = 0; flag <= 2; ++flag) {
            if (random_.Chance(85)) {
                EmitBit(Operation::Bcf, kIntcon, flag);
            }
        }
        if (random_.Chance(60)) {
            WriteLiteral(eeprom_.eeifRegister, 0);
        }
        if (model_.family != ModelFamily::Pic16F8x && random_.Chance(60)) {
            SelectBankOf(kPir1);
            Emit(Operation::Clrf, kPir1);
        }
        if (models::IsPic16F87x(model_.family) && random_.Chance(60)) {
            SelectBankOf(kPir2);
            Emit(Operation::Clrf, kPir2);
        }
        Emit(random_.Chance(95) ? Operation::Retfie : Operation::Return);
    }

    const models::Model& model_;
    const models::FamilyTraits& eeprom_;
    Random& random_;
    std::vector<std::uint16_t> words_;
    int selectedBank_ = 0;  // as far as the text of the program says
};

}  // namespace

std::vector<std::uint16_t> RandomProgram(const models::Model& model, Random& random) {
    return Generator(model, random).Generate();
}

int RandomSpecialRegister(ModelFamily family, Random& random) {
    return random.Pick(SpecialRegisters(family));
}

}  // namespace corvane::core
