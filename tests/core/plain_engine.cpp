#include "core/plain_engine.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <string>

#include "core/plain_registers.h"
#include "disasm/decoder.h"

namespace corvane::core::plain {

namespace {

// Flags in STATUS.
constexpr int kC = 1;
constexpr int kDc = 2;
constexpr int kZ = 4;

// Bits of EECON1.
constexpr int kRd = 0;
constexpr int kWr = 1;
constexpr int kWren = 2;
constexpr int kWrerr = 3;
constexpr int kEepgd = 7;

int AddFlags(int a, int b) {
    return (a + b > 255 ? kC : 0) | ((a & 15) + (b & 15) > 15 ? kDc : 0) |
           ((a + b) % 256 == 0 ? kZ : 0);
}

int SubtractFlags(int a, int b) {
    return (a >= b ? kC : 0) | ((a & 15) >= (b & 15) ? kDc : 0) | (a == b ? kZ : 0);
}

// One call of the engine: works on the state in place.
class Engine : public Registers {
  public:
    using Registers::Registers;

    void ExecuteStep() {
        flags_ = Cell(kStatus) & 0x07;
        powerFlags_ = Cell(kStatus) & 0x18;
        if (InterruptPending()) {
            s_.lastInstruction = kInterruptEntry;
            SetBit(kIntcon, 7, false);
            Push(s_.pc);
            SetPc(4);
            InstructionCycle();
        } else {
            s_.instructionCount += 1;
            InstructionCycle();
            s_.lastInstruction = At(chip_.programMemory, s_.pc % chip_.model->programWords);
            Execute(s_.lastInstruction);
            SetCell(kStatus, (Cell(kStatus) & 0xE7) | powerFlags_);
        }
        UpdatePeripherals();
        UpdatePortInputs();
        if (s_.pc >= chip_.model->programWords) {
            s_.stopRequested = true;
        }
    }

    void Clean() {
        ProcessorState fresh;
        fresh.stopRequested = s_.stopRequested;
        s_ = fresh;
        for (const models::Sfr& sfr : chip_.description.sfrList) {
            if (sfr.address < models::kDataMemorySize) {
                SetCell(sfr.address, sfr.resetValue);
            }
        }
        StateChanged();
    }

    // What follows from an edited state without a step.
    void StateChanged() {
        UsePins();
        UpdatePortInputs();
    }

    void TogglePin(Pin pin, bool simulationRunning) {
        std::uint8_t& inputs = At(s_.pinInputs, pin.port);
        inputs = Byte(inputs ^ (1 << pin.bit));
        const bool level = (inputs & (1 << pin.bit)) != 0;
        if (simulationRunning && pin.port == 0 && pin.bit == 4) {  // T0CKI
            const bool countsFallingEdges = Bit(kOptionReg, 4);
            if (Bit(kOptionReg, 5) && level == !countsFallingEdges) {
                TimerTick();
            }
        }
        if (simulationRunning && pin.port == 1 && pin.bit == 0 && level == Bit(kOptionReg, 6)) {
            SetBit(kIntcon, 1, true);
        }
        if (simulationRunning && pin.port == 1 && pin.bit >= 4) {
            SetBit(kIntcon, 0, true);
        }
        UpdatePortInputs();
    }

  private:
    bool InterruptPending() const {
        if (!Bit(kIntcon, 7)) {
            return false;
        }
        if ((Bit(kIntcon, 2) && Bit(kIntcon, 5)) || (Bit(kIntcon, 1) && Bit(kIntcon, 4)) ||
            (Bit(kIntcon, 0) && Bit(kIntcon, 3))) {
            return true;
        }
        if (!Bit(kIntcon, 6)) {
            return false;
        }
        const int first = Cell(kPir1) & Cell(kPie1);
        return Is8x()    ? Bit(0x088, 4)
               : Is62x() ? (first & 0xF7) != 0
                         : first != 0 || (Cell(kPir2) & Cell(kPie2) & 0x59) != 0;
    }

    // Instructions.

    void Store(int word, int value) {
        if ((word & 128) != 0) {
            Write(word & 127, value);
        } else {
            s_.w = value;
        }
    }

    void SetFlags(int mask, int flags) {
        flags_ = (flags_ & ~mask) | (flags & mask);
        SetCell(kStatus, (Cell(kStatus) & 0xF8) | flags_);
    }

    // A result that Z tells of.
    void Logic(int word, int result) {
        Store(word, result);
        SetFlags(kZ, result == 0 ? kZ : 0);
    }

    void LiteralLogic(int result) {
        s_.w = result;
        SetFlags(kZ, result == 0 ? kZ : 0);
    }

    void SkipIf(bool condition) {
        if (condition) {
            IncrementPc();
            InstructionCycle();
        }
    }

    void Execute(int word) {
        const bool isSleep = word == 0x0063;
        if (isSleep) {
            powerFlags_ = 0x10;
        }
        const bool isControl = word == 0x0000 || word == 0x0020 || word == 0x0040 ||
                               word == 0x0060 || word == 0x0008 || word == 0x0009 || word == 0x0064;
        const bool isUnused = (word < 0x0080 && !isControl) || word >> 8 == 0x3B;
        if (isSleep || isUnused) {
            s_.stopRequested = true;
            return;
        }
        IncrementPc();
        if (word < 0x0080) {
            Control(word);
        } else if (word < 0x1000) {
            ByteOriented(word);
        } else if (word < 0x2000) {
            BitOriented(word);
        } else {
            LiteralOrJump(word);
        }
    }

    void Control(int word) {
        if (word == 0x0008) {
            Return();
        } else if (word == 0x0009) {
            Return();
            SetBit(kIntcon, 7, true);
        } else if (word == 0x0064) {
            powerFlags_ = 0x18;
        }
    }

    void ByteOriented(int word) {
        const int f = word & 127;
        const int w = s_.w;
        if (word < 0x0100) {  // MOVWF
            Write(f, w);
            return;
        }
        if (word < 0x0200) {  // CLRF, CLRW
            Store(word, 0);
            SetFlags(kZ, kZ);
            return;
        }
        const int a = Read(f);
        const int oldC = flags_ & kC;
        switch (word >> 8) {
            case 0x02:  // SUBWF
                Store(word, (a - w) & 255);
                return SetFlags(kC | kDc | kZ, SubtractFlags(a, w));
            case 0x03:  // DECF
                return Logic(word, (a - 1) & 255);
            case 0x04:
                return Logic(word, a | w);
            case 0x05:
                return Logic(word, a & w);
            case 0x06:
                return Logic(word, a ^ w);
            case 0x07:  // ADDWF
                Store(word, (a + w) & 255);
                return SetFlags(kC | kDc | kZ, AddFlags(a, w));
            case 0x08:  // MOVF
                return Logic(word, a);
            case 0x09:  // COMF
                return Logic(word, 255 - a);
            case 0x0A:  // INCF
                return Logic(word, (a + 1) & 255);
            case 0x0B:  // DECFSZ
                Store(word, (a - 1) & 255);
                return SkipIf(a == 1);
            case 0x0C:  // RRF
                Store(word, a / 2 + oldC * 128);
                return SetFlags(kC, a & 1);
            case 0x0D:  // RLF
                Store(word, (a * 2 + oldC) & 255);
                return SetFlags(kC, a / 128);
            case 0x0E:  // SWAPF
                return Store(word, a / 16 + a % 16 * 16);
            default:  // INCFSZ
                Store(word, (a + 1) & 255);
                return SkipIf(a == 255);
        }
    }

    void BitOriented(int word) {
        const int f = word & 127;
        const int mask = 1 << ((word >> 7) & 7);
        const int a = Read(f);
        switch (word >> 10) {
            case 4:
                return Write(f, a & ~mask);
            case 5:
                return Write(f, a | mask);
            case 6:
                return SkipIf((a & mask) == 0);
            default:
                return SkipIf((a & mask) != 0);
        }
    }

    void LiteralOrJump(int word) {
        const int k = word & 255;
        const int w = s_.w;
        if (word < 0x3000) {  // CALL, GOTO
            InstructionCycle();
            if (word < 0x2800) {
                Push(s_.pc);
            }
            SetPc((Cell(kPclath) & 0x18) * 256 + (word & 2047));
        } else if (word < 0x3800) {  // MOVLW, RETLW
            if (word >= 0x3400) {
                Return();
            }
            s_.w = k;
        } else if (word < 0x3B00) {  // IORLW, ANDLW, XORLW
            LiteralLogic(word < 0x3900 ? w | k : word < 0x3A00 ? w & k : w ^ k);
        } else if (word < 0x3E00) {  // SUBLW
            s_.w = (k - w) & 255;
            SetFlags(kC | kDc | kZ, SubtractFlags(k, w));
        } else {  // ADDLW
            s_.w = (w + k) & 255;
            SetFlags(kC | kDc | kZ, AddFlags(w, k));
        }
    }

    // Peripherals.

    void UsePins() {
        if (Is87x()) {
            AdcPortConfig();
        }
        if (Is62x()) {
            VoltageReferenceUpdate();
            ComparatorPortConfig();
        }
    }

    void UpdatePeripherals() {
        UsePins();
        if (Is87x()) {
            AdcUpdate();
        }
        if (Is62x()) {
            ComparatorUpdate();
        }
        EepromRead();
        if (!s_.eeWriteBusy) {
            EepromUnlock();
        }
        if (s_.eeWriteBusy) {
            EepromWriteTiming();
        }
    }

    int Eecon1() const { return Is8x() ? 0x088 : Is62x() ? 0x09C : 0x18C; }
    int Eedata() const { return Is8x() ? 0x008 : Is62x() ? 0x09A : 0x10C; }
    int Eeadr() const { return Is8x() ? 0x009 : Is62x() ? 0x09B : 0x10D; }
    bool ProgramMemorySelected() const { return Is87x() && Bit(Eecon1(), kEepgd); }

    void EepromRead() {
        if (!Bit(Eecon1(), kRd)) {
            return;
        }
        SetBit(Eecon1(), kRd, false);
        if (s_.eeWriteBusy) {
            return;
        }
        SetBit(Eecon1(), kWr, false);
        const int address = Cell(Eeadr());
        if (address < chip_.model->eepromBytes && !ProgramMemorySelected()) {
            SetCell(Eedata(), At(s_.eepromMemory, address));
        }
    }

    void EepromUnlock() {
        const std::string toEecon2 = Is8x() ? "MOVWF 0x09" : Is62x() ? "MOVWF 0x1D" : "MOVWF 0x0D";
        const std::array<std::string, 4> sequence = {"MOVLW 0x55", toEecon2, "MOVLW 0xAA",
                                                     toEecon2};
        if (s_.eeUnlockState < 4) {
            const std::string text = s_.lastInstruction < 0
                                         ? std::string()
                                         : disasm::DecodeInstruction(s_.lastInstruction);
            s_.eeUnlockState = text == At(sequence, s_.eeUnlockState) ? s_.eeUnlockState + 1 : 0;
            return;
        }
        s_.eeUnlockState = 0;
        if (Bit(Eecon1(), kWren) && Bit(Eecon1(), kWr) && !ProgramMemorySelected()) {
            s_.eeWriteAddress = Cell(Eeadr());
            s_.eeWriteData = Cell(Eedata());
            s_.eeWriteBusy = true;
            s_.eeWriteElapsed = 0;
        } else {
            SetBit(Eecon1(), kWr, false);
        }
    }

    void EepromWriteTiming() {
        s_.eeWriteElapsed += 4;
        SetBit(Eecon1(), kWr, true);
        if (Is87x()) {
            SetBit(Eecon1(), kEepgd, false);
        }
        if (s_.eeWriteElapsed < chip_.eepromWriteTime) {
            return;
        }
        SetBit(Eecon1(), kWr, false);
        SetBit(Eecon1(), kWrerr, false);
        SetBit(Is8x() ? 0x088 : Is62x() ? kPir1 : kPir2, Is62x() ? 7 : 4, true);
        s_.eeWriteBusy = false;
        s_.eeWriteElapsed = 0;
        if (s_.eeWriteAddress < chip_.model->eepromBytes) {
            At(s_.eepromMemory, s_.eeWriteAddress) = Byte(s_.eeWriteData);
        }
    }

    // By PCFG: A for an analog pin, AN0 first; then the reference pins.
    void AdcPortConfig() {
        static constexpr std::array<const char*, 16> kSetups = {
            "AAAAAAAA",    "AAA-AAAA +", "AAAAA",    "AAA-A +",   "AA-A",     "AA +",  "",  "",
            "AA--AAAA -+", "AAAAAA",     "AAA-AA +", "AA--AA -+", "AA--A -+", "AA -+", "A", "A -+"};
        const std::string setup = At(kSetups, Cell(kAdcon1) & 15);
        for (std::size_t channel = 0; channel < 8; ++channel) {
            s_.analogPinFlags.at(channel) = channel < setup.size() && setup[channel] == 'A';
        }
        s_.analogPinFlags[kRa2Reference] = setup.ends_with("-+");
        s_.analogPinFlags[kRa3Reference] = setup.ends_with("+");
    }

    void AdcUpdate() {
        if (!Bit(kAdcon0, 2) || !Bit(kAdcon0, 0)) {
            s_.adElapsed = 0;
            return;
        }
        if (s_.adElapsed == 0) {
            s_.adSample = At(s_.analogValues, (Cell(kAdcon0) >> 3) & 7);
        }
        s_.adElapsed += 4;
        if (s_.adElapsed < chip_.adConversionTime) {
            return;
        }
        s_.adElapsed = 0;
        SetBit(kAdcon0, 2, false);
        SetBit(kPir1, 6, true);
        const bool rightJustified = Bit(kAdcon1, 7);
        SetCell(kAdresh, rightJustified ? s_.adSample / 256 : s_.adSample / 4);
        SetCell(kAdresl, rightJustified ? s_.adSample : s_.adSample * 64);
    }

    void VoltageReferenceUpdate() {
        const double vr = Cell(kVrcon) & 15;
        const double volts = Bit(kVrcon, 5) ? vr / 24 * 500 : vr / 32 * 500 + 125;
        s_.vrefValue = Bit(kVrcon, 7) ? static_cast<int>(std::lrint(volts)) : 0;
        s_.analogPinFlags[kRa2Reference] = Bit(kVrcon, 6);
    }

    void ComparatorPortConfig() {
        static constexpr std::array<const char*, 8> kAnalog = {"AAAA", "AAAA", "AAAA", "AAA-",
                                                               "AAAA", "-AA-", "AAA-", "----"};
        for (int channel = 0; channel < 4; ++channel) {
            At(s_.analogPinFlags, channel) = At(kAnalog, Cell(kCmcon) & 7)[channel] == 'A';
        }
    }

    void ComparatorUpdate() {
        const auto& ra = s_.analogValues;
        const int mode = Cell(kCmcon) & 7;
        const bool cis = Bit(kCmcon, 3);
        if (mode == 0 || mode == 7) {
            return;
        }
        const int switched1 = cis ? ra[3] : ra[0];
        const int switched2 = cis ? ra[2] : ra[1];
        if (mode == 2) {
            Compare(s_.vrefValue, switched1, 6, 4);
            Compare(s_.vrefValue, switched2, 7, 5);
            return;
        }
        if (mode != 5) {
            Compare(mode == 4 ? ra[3] : ra[2], mode == 1 ? switched1 : ra[0], 6, 4);
        }
        Compare(ra[2], ra[1], 7, 5);
    }

    void Compare(int plus, int minus, int outputBit, int invertBit) {
        if (plus != minus) {
            SetBit(kCmcon, outputBit, (plus > minus) != Bit(kCmcon, invertBit));
        }
    }

    int flags_ = 0;       // STATUS bits 2..0 during a step
    int powerFlags_ = 0;  // STATUS bits 4..3 during a step
};

}  // namespace

void Clean(const Chip& chip, ProcessorState& state) {
    Engine(chip, state).Clean();
}

void Start(const Chip& chip, ProcessorState& state) {
    Clean(chip, state);
    state.stopRequested = false;
    Engine(chip, state).InstructionCycle();
}

void ExecuteStep(const Chip& chip, ProcessorState& state) {
    Engine(chip, state).ExecuteStep();
}

void TogglePin(const Chip& chip, ProcessorState& state, Pin pin, bool simulationRunning) {
    Engine(chip, state).TogglePin(pin, simulationRunning);
}

void StateChanged(const Chip& chip, ProcessorState& state) {
    Engine(chip, state).StateChanged();
}

void AcceptAnalogValue(const Chip& chip, ProcessorState& state, int channel, int value) {
    At(state.analogValues, channel) = value;
    Engine(chip, state).UpdatePortInputs();
}

}  // namespace corvane::core::plain
