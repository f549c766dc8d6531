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
constexpr int kPorta = 0x005;
constexpr int kPortb = 0x006;
constexpr int kPclath = 0x00A;
constexpr int kIntcon = 0x00B;
constexpr int kPir1 = 0x00C;
constexpr int kPir2 = 0x00D;
constexpr int kT1con = 0x010;   // or a general purpose register
constexpr int kAdcon0 = 0x01F;  // and CMCON
constexpr int kOptionReg = 0x081;
constexpr int kTrisa = 0x085;
constexpr int kTrise = 0x089;
constexpr int kPie1 = 0x08C;
constexpr int kPie2 = 0x08D;
constexpr int kAdcon1 = 0x09F;  // and VRCON

constexpr int kGpr = 0x20;  // a general purpose register in bank 0 of every model

// With every operand bit set that the form has: f, d or b.
int OperandMask(Operation operation) {
    switch (isa::InstructionOf(operation).form) {
        case isa::OperandForm::RegisterBit:
            return 0x3FF;
        case isa::OperandForm::RegisterDestination:
            return 0xFF;
        default:
            return 0x7F;
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

    std::vector<std::uint16_t> GenerateLoops() {
        words_.resize(4);
        LoopHandler();
        for (int i = random_.Below(3); i > 0; --i) {
            subroutines_.push_back(Here());
            Loop(random_.Below(3));
            Emit(random_.Chance(70) ? Operation::Return : Operation::Retlw);
        }
        words_[0] = Word(Operation::Goto, Here());
        PrepareLoops();
        const int start = Here();
        for (int i = random_.Below(4); i >= 0; --i) {
            if (random_.Chance(20)) {
                EepromWrite();
                SelectBankOf(0);
            }
            Loop(random_.Below(4));
            LoopFiller();
        }
        Emit(Operation::Goto, random_.Chance(90) ? start : Here());
        return InEveryOtherPage();
    }

  private:
    bool Is87x() const { return eeprom_.hasEepgd; }
    int Here() const { return static_cast<int>(words_.size()); }
    int SpecialRegister() { return RandomSpecialRegister(model_.family, random_); }

    static std::uint16_t Word(Operation operation, int operands) {
        return static_cast<std::uint16_t>(isa::InstructionOf(operation).firstWord | operands);
    }
    void Emit(Operation operation, int operands = 0) {
        words_.push_back(Word(operation, operands));
    }
    void EmitBit(Operation operation, int f, int bit) { Emit(operation, (bit << 7) | (f & 0x7F)); }
    void EmitRegister(Operation operation, int f) {  // with a random destination or bit
        Emit(operation, (f & 0x7F) | (random_.Byte() << 7 & OperandMask(operation)));
    }

    // Two bits of MOVLW's word mean nothing.
    void Movlw(int value) {
        Emit(Operation::Movlw, value | (random_.Chance(25) ? random_.Below(4) << 8 : 0));
    }

    // Values that make something happen more often than chance would.
    int ValueFor(int address) {
        const int value = random_.Byte();
        if (random_.Chance(30)) {
            return value;
        }
        switch (address) {
            case kTmr0:
                return 0xF0 | value;
            case kOptionReg:  // the instruction clock, and often the prescaler
                return value & (random_.Chance(60) ? 0xD7 : 0xDF);
            case kIntcon:
                return 0x80 | (value & 0x78);
            case kPclath:
                return (value & 0x1F) * 256 % model_.programWords / 256;
            case kAdcon0:
                return Is87x() ? value | 0x05 : value;
            case kAdcon1:
                return value | 0x80;
            default:
                return address >= kTrisa && address <= kTrise && random_.Chance(40) ? 0xFF : value;
        }
    }

    void Fragment() {
        struct Choice {
            int below;
            void (Generator::*emit)();
        };
        static constexpr std::array<Choice, 10> kChoices = {{{33, &Generator::Instructions},
                                                             {48, &Generator::WriteSomething},
                                                             {60, &Generator::TouchSomething},
                                                             {66, &Generator::EepromWrite},
                                                             {70, &Generator::EepromRead},
                                                             {77, &Generator::AnalogSequence},
                                                             {83, &Generator::Indirect},
                                                             {88, &Generator::ComputedJump},
                                                             {93, &Generator::StartTimer},
                                                             {98, &Generator::EnableInterrupts}}};
        const int kind = random_.Below(100);
        for (const Choice& choice : kChoices) {
            if (kind < choice.below) {
                return (this->*choice.emit)();
            }
        }
        // Rarely a word that may be anything: SLEEP or none of the instructions.
        static constexpr std::array kStoppingWords = {0x0063, 0x3B00, 0x0001};
        words_.push_back(static_cast<std::uint16_t>(
            random_.Chance(75) ? random_.Pick(kStoppingWords) : random_.Below(isa::kWordCount)));
    }

    void Instructions() {
        for (int i = random_.Below(6); i >= 0; --i) {
            AnyInstruction();
        }
    }

    void AnyInstruction() {
        const auto operation = static_cast<Operation>(random_.Below(isa::kInstructionCount));
        const bool isReturn = operation == Operation::Return || operation == Operation::Retfie ||
                              operation == Operation::Retlw || operation == Operation::Sleep;
        if (isReturn && random_.Chance(85)) {
            return;
        }
        switch (isa::InstructionOf(operation).form) {
            case isa::OperandForm::None:
                return Emit(operation);
            case isa::OperandForm::Address11:  // mostly forwards, or a program ends in a loop
                return Emit(operation,
                            (Here() + (random_.Chance(90) ? 2 : -8) + random_.Below(16)) & 0x7FF);
            case isa::OperandForm::Literal8:
                return Emit(operation, random_.Byte());
            default:
                break;
        }
        const int kind = random_.Below(100);
        const int f = kind < 40   ? SpecialRegister() & 0x7F
                      : kind < 80 ? kGpr + random_.Below(8)
                                  : random_.Below(128);
        if (f != kPcl || random_.Chance(15)) {
            EmitRegister(operation, f);
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

    void WriteSomething() { WriteRegister(SpecialRegister()); }

    void TouchSomething() {
        const int address = SpecialRegister();
        const auto operation = static_cast<Operation>(
            random_.Below(static_cast<int>(Operation::Call)));  // those on registers, and control
        if (operation >= Operation::Movwf && ((address & 0x7F) != kPcl || random_.Chance(25))) {
            SelectBankOf(address);
            EmitRegister(operation, address);
        }
    }

    // Waits until a bit is clear, or goes on with something else meanwhile.
    void WaitOrGoOn(int address, int bit) {
        if (random_.Chance(10)) {
            EmitBit(Operation::Btfsc, address, bit);
            Emit(Operation::Goto, (Here() - 1) & 0x7FF);
        } else {
            Instructions();
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
        SelectEepromOrProgramMemory();
        if (random_.Chance(90)) {
            EmitBit(Operation::Bsf, eeprom_.eecon1, 2);
        }
        if (random_.Chance(70)) {
            EmitBit(Operation::Bcf, kIntcon, 7);
        }
        for (const int literal : {0x55, 0xAA}) {
            Disturb();
            Movlw(random_.Chance(97) ? literal : 0x55);
            Disturb();
            Emit(Operation::Movwf, eeprom_.eecon2 & 0x7F);
        }
        Disturb();
        if (random_.Chance(90)) {
            EmitBit(Operation::Bsf, eeprom_.eecon1, 1);
        }
        WaitOrGoOn(eeprom_.eecon1, 1);
    }

    void Disturb() {
        if (random_.Chance(5)) {
            random_.Chance(50) ? AnyInstruction() : SelectBankOf(SpecialRegister());
        }
    }

    // EEPGD, which is no bit of the smaller families.
    void SelectEepromOrProgramMemory() {
        SelectBankOf(eeprom_.eecon1);
        EmitBit(random_.Chance(85) ? Operation::Bcf : Operation::Bsf, eeprom_.eecon1, 7);
    }

    void EepromRead() {
        WriteLiteral(eeprom_.eeadr, random_.Byte() & (random_.Chance(70) ? 0x3F : 0xFF));
        SelectEepromOrProgramMemory();
        EmitBit(Operation::Bsf, eeprom_.eecon1, 0);
    }

    // A conversion, or a comparator mode with a reference.
    void AnalogSequence() {
        if (random_.Chance(50)) {
            WriteLiteral(kAdcon1, random_.Byte() | (random_.Below(2) << 7));
        }
        WriteLiteral(kAdcon0,
                     (random_.Byte() & 0xF8) | (random_.Chance(90) ? 1 : random_.Below(8)));
        EmitBit(Operation::Bsf, kAdcon0, random_.Below(3));
        EmitBit(Operation::Bsf, kAdcon0, 2);
        WaitOrGoOn(kAdcon0, 2);
        if (random_.Chance(30)) {
            EmitBit(Operation::Bcf, kAdcon0, random_.Chance(50) ? 2 : 0);
        }
    }

    void Indirect() {
        const int address = random_.Chance(70) ? SpecialRegister() : random_.Below(512);
        EmitBit((address & 0x100) != 0 ? Operation::Bsf : Operation::Bcf, kStatus, 7);
        Movlw(address & 0xFF);
        Emit(Operation::Movwf, kFsr);
        Movlw(ValueFor(address));
        if ((address & 0x7F) != kPcl || random_.Chance(20)) {
            Emit(Operation::Movwf, 0);
            EmitRegister(random_.Chance(50) ? Operation::Movf : Operation::Xorwf, 0);
            EmitRegister(random_.Chance(50) ? Operation::Bsf : Operation::Btfss, 0);
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
            Emit(Operation::Clrwdt);
        }
        Emit(Operation::Decfsz, kPcl | 0x80);
    }

    void StartTimer() {
        WriteRegister(kOptionReg);
        WriteRegister(kTmr0);
    }

    void EnableInterrupts() {
        if (model_.family != ModelFamily::Pic16F8x) {
            WriteRegister(kPie1);
        }
        if (Is87x()) {
            WriteRegister(kPie2);
        }
        WriteRegister(kIntcon);
    }

    // ---- loops as people write them -------------------------------------------------------------

    int Counter() { return kGpr + random_.Below(6); }
    // Inner loops often make more passages than outer ones, so that these come by too.
    int CountOf(int depth) {
        return random_.Chance(depth == 0 ? 60 : 15) ? random_.Byte()
                                                    : 1 + random_.Below(24 >> depth);
    }

    void LoopHandler() {
        EmitBit(Operation::Bcf, kIntcon, 2);
        if (random_.Chance(60)) {
            EmitBit(Operation::Bcf, kIntcon, 1);
            Emit(Operation::Incf, (kGpr + 7) | 0x80);
        }
        if (random_.Chance(15)) {  // an interrupt that reaches into the loops
            EmitRegister(Operation::Decf, Counter());
        }
        if (random_.Chance(15)) {
            Loop(1);
        }
        Emit(Operation::Retfie);
    }

    // Timer0 with a prescaler or without, a conversion, and interrupts in every other program.
    void PrepareLoops() {
        WriteLiteral(kOptionReg, (random_.Chance(40) ? 4 + random_.Below(4) : random_.Below(16)) |
                                     (random_.Chance(15) ? 0x20 : 0));
        if (Is87x()) {
            WriteLiteral(kAdcon1, random_.Byte());
            WriteLiteral(kAdcon0, 0x41);
        }
        SelectBankOf(0);
        Movlw(Counter());
        Emit(Operation::Movwf, kFsr);
        if (random_.Chance(50)) {
            Movlw(0xA0 | (random_.Byte() & 0x10));
            Emit(Operation::Movwf, kIntcon);
        }
    }

    // With another PCLATH a jump leads to the same loops, or to NOPs in front of them.
    std::vector<std::uint16_t> InEveryOtherPage() const {
        constexpr int kPageSize = 2048;
        std::vector<std::uint16_t> pages;
        for (int page = 0; page < model_.programWords; page += 2 * kPageSize) {
            pages.resize(static_cast<std::size_t>(page));
            pages.insert(pages.end(), words_.begin(), words_.end());
        }
        return pages;
    }

    void LoopFiller() {
        struct Choice {
            Operation operation;
            int operands;
        };
        const std::array choices = {
            Choice{Operation::Nop, 0},
            Choice{Operation::Clrwdt, 0},
            Choice{Operation::Movlw, random_.Chance(70) ? random_.Byte() : 0x55},
            Choice{Operation::Addlw, random_.Byte()},
            Choice{Operation::Goto, Here() + 1},
            Choice{Operation::Incf, (kGpr + 6) | 0x80},
            Choice{Operation::Decf, (kGpr + 6) | 0x80},
            Choice{Operation::Movf, Counter() | (random_.Below(2) << 7)},
            Choice{Operation::Incf, Counter() | (random_.Below(2) << 7)},
            Choice{Operation::Movf, kTmr0},
            Choice{Operation::Movf, kPortb},
            Choice{Operation::Xorwf, kPortb | 0x80},
            Choice{Operation::Bsf, kPortb | (random_.Below(8) << 7)},
            Choice{Operation::Bcf, kStatus},
            Choice{Operation::Rlf, (kGpr + 7) | 0x80},
            Choice{Operation::Incf, 0x80},
            Choice{Operation::Incf, kFsr | 0x80},
            Choice{Operation::Incf, kT1con | 0x80},
            Choice{Operation::Xorwf, kPorta | 0x80},
            Choice{Operation::Xorwf, (Is87x() ? kPclath : kPortb) | 0x80},
            Choice{Operation::Btfsc, kPortb | (random_.Below(8) << 7)}};
        const Choice choice = random_.Pick(choices);
        Emit(choice.operation, choice.operands);
    }

    void Loop(int depth) {
        if (depth == 0 && random_.Chance(40)) {
            return WaitingLoop();
        }
        const int counter = Counter();
        const int high = Counter();
        if (random_.Chance(95)) {
            Movlw(CountOf(depth));
            Emit(Operation::Movwf, counter);
        }
        if (random_.Chance(25)) {
            return LoopTestedFirst(counter, depth);
        }
        const int start = Here();
        LoopBody(depth);
        CountPassage(counter, high, depth);
        Emit(Operation::Goto, start);
    }

    void LoopTestedFirst(int counter, int depth) {
        const int start = Here();
        Emit(Operation::Movf, counter | 0x80);
        EmitBit(Operation::Btfsc, kStatus, 2);
        const auto wayOut = words_.size();
        Emit(Operation::Goto);
        LoopBody(depth);
        Emit(Operation::Decf, counter | 0x80);
        Emit(Operation::Goto, start);
        words_[wayOut] = Word(Operation::Goto, Here());
    }

    // What decides whether the way back is taken.
    void CountPassage(int counter, int high, int depth) {
        switch (random_.Below(9)) {
            case 0:
                Emit(Operation::Decf, counter | 0x80);
                EmitBit(Operation::Btfss, kStatus, 2);
                break;
            case 1:
                Emit(Operation::Incfsz, counter | 0x80);
                break;
            case 2:  // two counters and one way back
                Emit(Operation::Decfsz, counter | 0x80);
                Emit(Operation::Goto, Here() + 2);
                Emit(Operation::Decfsz, high | 0x80);
                break;
            case 3:  // up to a limit
                Emit(Operation::Incf, counter | 0x80);
                Movlw(CountOf(depth));
                Emit(Operation::Subwf, counter);
                EmitBit(Operation::Btfss, kStatus, random_.Chance(50) ? 0 : 2);
                break;
            case 4:  // until it has a value, with the same W at each end
                Emit(Operation::Incf, counter | 0x80);
                Emit(Operation::Movf, counter);
                Emit(Operation::Xorlw, CountOf(depth));
                EmitBit(Operation::Btfsc, kStatus, 2);
                Emit(Operation::Goto, Here() + 3);
                Movlw(0);
                break;
            case 5:  // sixteen bits, until the high ones have a bit
                Emit(Operation::Movf, counter | 0x80);
                EmitBit(Operation::Btfsc, kStatus, 2);
                Emit(Operation::Decf, high | 0x80);
                Emit(Operation::Decf, counter | 0x80);
                EmitBit(Operation::Btfss, high, random_.Below(8));
                break;
            default:
                Emit(Operation::Decfsz, counter | 0x80);
                break;
        }
    }

    void LoopBody(int depth) {
        for (int i = random_.Below(5) - 2; i > 0; --i) {
            LoopFiller();
        }
        if (depth > 0) {
            Loop(depth - 1);
        }
        if (!subroutines_.empty() && random_.Chance(30)) {
            Emit(Operation::Call, random_.Pick(subroutines_));
        }
        if (random_.Chance(30)) {
            LoopFiller();
        }
    }

    // Until Timer0 overflows or reaches a value, a conversion or an EEPROM write ends, or a pin
    // changes.
    void WaitingLoop() {
        static constexpr std::array kKinds = {0, 0, 1, 2, 3, 4, 5, 5};
        const int kind = random_.Pick(kKinds);
        if (kind == 5) {
            EepromWrite();
            SelectBankOf(eeprom_.eecon1);
        } else if (kind == 0) {
            Movlw(0x80 | random_.Byte());
            Emit(Operation::Movwf, kTmr0);
        }
        if (kind <= 1) {
            EmitBit(Operation::Bcf, kIntcon, 2);
        } else if (kind == 3 && Is87x()) {
            EmitBit(Operation::Bsf, kAdcon0, 2);
        }
        const int start = Here();
        if (random_.Chance(30)) {
            LoopFiller();
        }
        if (kind <= 1) {
            EmitBit(Operation::Btfss, kIntcon, 2);
        } else if (kind == 5) {
            EmitBit(Operation::Btfsc, eeprom_.eecon1, 1);
        } else if (kind == 2) {
            AskTimer();
        } else if (kind == 3) {
            EmitBit(Operation::Btfsc, Is87x() ? kAdcon0 : kGpr + 7, 2);
        } else {
            EmitBit(random_.Chance(50) ? Operation::Btfss : Operation::Btfsc, kPortb,
                    random_.Below(8));
        }
        Emit(Operation::Goto, start);
        SelectBankOf(0);
    }

    // Whether TMR0 has a value, has passed it, or has a bit; also through INDF.
    void AskTimer() {
        const int f = random_.Chance(20) ? 0 : kTmr0;
        if (f == 0) {
            Movlw(kTmr0);
            Emit(Operation::Movwf, kFsr);
        }
        switch (random_.Below(4)) {
            case 0:
                return EmitBit(random_.Chance(50) ? Operation::Btfss : Operation::Btfsc, f,
                               random_.Below(8));
            case 1:
                Movlw(random_.Byte());
                Emit(Operation::Subwf, f);
                return EmitBit(Operation::Btfss, kStatus, 0);
            default:
                Emit(Operation::Movf, f);
                Emit(Operation::Xorlw, random_.Byte());
                return EmitBit(Operation::Btfss, kStatus, 2);
        }
    }

    void Handler() {
        Instructions();
        for (int flag = 0; flag <= 2; ++flag) {
            if (random_.Chance(85)) {
                EmitBit(Operation::Bcf, kIntcon, flag);
            }
        }
        for (const int address : {eeprom_.eeifRegister, kPir1, kPir2}) {
            const bool isFlags = address != kPir2 || Is87x();
            if (isFlags && random_.Chance(60)) {
                WriteLiteral(address, 0);
            }
        }
        Emit(random_.Chance(95) ? Operation::Retfie : Operation::Return);
    }

    const models::Model& model_;
    const models::FamilyTraits& eeprom_;
    Random& random_;
    std::vector<std::uint16_t> words_;
    std::vector<int> subroutines_;
    int selectedBank_ = 0;  // as far as the text of the program says
};

}  // namespace

std::vector<std::uint16_t> RandomProgram(const models::Model& model, Random& random) {
    return Generator(model, random).Generate();
}

std::vector<std::uint16_t> RandomLoops(const models::Model& model, Random& random) {
    return Generator(model, random).GenerateLoops();
}

int RandomSpecialRegister(ModelFamily family, Random& random) {
    const models::FamilyTraits& traits = models::TraitsOf(family);
    if (random.Chance(15)) {
        const std::array eeprom = {traits.eedata, traits.eeadr, traits.eecon1, traits.eecon2};
        return random.Pick(eeprom);
    }
    // Some of them are something else on the smaller families, or a mirror.
    static constexpr std::array kRegisters = {
        0x000, 0x001, 0x002, 0x003, 0x004, 0x005, 0x006, 0x007, 0x008, 0x009, 0x00A, 0x00B,
        0x00C, 0x00D, 0x01E, 0x01F, 0x081, 0x083, 0x085, 0x086, 0x087, 0x088, 0x089, 0x08C,
        0x08D, 0x09E, 0x09F, 0x101, 0x106, 0x181, 0x186, 0x01F, 0x09F, 0x085, 0x089};
    return random.Pick(kRegisters);
}

}  // namespace corvane::core
