// The simulated chip once more, written down as plainly as its rules allow: each word is looked up
// by value ranges, ports are computed before every read, all peripherals run in each step, and
// nothing is remembered from one step to the next but the state itself. It is slow on purpose; the
// engine of the product is compared with it.
#pragma once

#include <array>
#include <string>

#include "core/pins.h"
#include "core/processor_state.h"
#include "models/catalogue.h"
#include "models/description.h"

namespace corvane::core::plain {

struct Chip {
    const models::Model* model;
    models::ModelDescription description;
    int eepromWriteTime = 1000;  // clock cycles
    int adConversionTime = 100;  // clock cycles
};

// Works on the state in place.
class Engine {
  public:
    Engine(const Chip& chip, ProcessorState& state) : chip_(chip), state_(state) {}

    void Clean();
    void Start();
    void ExecuteStep();
    void TogglePin(Pin pin, bool simulationRunning);
    void AcceptAnalogValue(int channel, int value);
    void UpdatePortInputs();

  private:
    // What belongs to one family alone.
    struct EepromRegisters {
        int eecon1, eedata, eeadr;   // cells
        int flagRegister, flagMask;  // EEIF
        const char* unlockText;      // of the MOVWF in the unlock sequence
    };
    struct AnalogPin {
        int channel, port, bit;
    };
    bool IsPic16F8x() const;
    bool IsPic16F87x() const;
    bool IsPic16F87x40() const;
    bool IsPic16F62x() const;
    int PortCount() const;
    int AnalogFullScale() const;
    int AnalogChannelCount() const;
    EepromRegisters Eeprom() const;

    // Data memory.
    int Cell(int index) const;
    void SetCell(int index, int value);
    bool Bit(int index, int bit) const;
    void SetBit(int index, int bit, bool value);
    int ResolveAddress(int f) const;
    int ReadRegister(int f);
    void WriteRegister(int f, int value);
    void Store(int word, int value);

    // Ports.
    int Tris(int port) const;
    void ForgetLevelsOfOutputs();
    void ClearLevelsOfAnalogPins();
    void ComputePortValues();
    void ComputeAnalogValue(const AnalogPin& pin);

    // Program counter and stack.
    void SetPc(int address);
    void IncrementPc();
    void Push(int address);
    int Pop();

    // Clock, Timer0 and interrupts.
    void InstructionCycle();
    void TimerTick();
    bool InterruptPending() const;
    void EnterInterrupt();
    void ExternalClockEdge(bool newLevel);
    void IntPinEdge(bool oldLevel);
    void PortBChange();

    // Peripherals.
    void UpdatePeripherals();
    void EepromUpdate();
    void EepromRead();
    void EepromUnlock();
    void EepromWriteTiming();
    void AdcPortConfig();
    void AdcUpdate();
    void VoltageReferenceUpdate();
    void ComparatorPortConfig();
    void ComparatorUpdate();
    void CompareInputs(int plus, int minus, int outputBit, int invertBit);
    std::string LastInstruction() const;

    // Instructions, in the order in which a word is looked up.
    struct Row;
    static const std::array<Row, 38> kRows;
    void ExecuteInstruction();
    void StoreFlags();
    void SetZeroFlag(int r);
    void SetAddFlags(int a, int b);
    void SetSubtractFlags(int a, int b);
    void Skip();
    void Nop(int word);
    void Return(int word);
    void Retfie(int word);
    void Sleep(int word);
    void Clrwdt(int word);
    void Movwf(int word);
    void Clrw(int word);
    void Clrf(int word);
    void Subwf(int word);
    void Decf(int word);
    void Iorwf(int word);
    void Andwf(int word);
    void Xorwf(int word);
    void Addwf(int word);
    void Movf(int word);
    void Comf(int word);
    void Incf(int word);
    void Decfsz(int word);
    void Rrf(int word);
    void Rlf(int word);
    void Swapf(int word);
    void Incfsz(int word);
    void Bcf(int word);
    void Bsf(int word);
    void Btfsc(int word);
    void Btfss(int word);
    void Call(int word);
    void Goto(int word);
    void Movlw(int word);
    void Retlw(int word);
    void Iorlw(int word);
    void Andlw(int word);
    void Xorlw(int word);
    void Sublw(int word);
    void Addlw(int word);

    const Chip& chip_;
    ProcessorState& state_;
    int statusFlags_ = 0;  // working copy of STATUS bits 2..0 during one step
    int powerFlags_ = 0;   // working copy of STATUS bits 4..3 during one step
};

// Cells that the engine reaches directly.
constexpr int kTmr0 = 0x001;
constexpr int kPcl = 0x002;
constexpr int kStatus = 0x003;
constexpr int kFsr = 0x004;
constexpr int kPorta = 0x005;
constexpr int kPclath = 0x00A;
constexpr int kIntcon = 0x00B;
constexpr int kPir1 = 0x00C;
constexpr int kPir2 = 0x00D;
constexpr int kOptionReg = 0x081;
constexpr int kTrisa = 0x085;
constexpr int kPie1 = 0x08C;
constexpr int kPie2 = 0x08D;
constexpr int kAdresh = 0x01E;
constexpr int kAdresl = 0x09E;
constexpr int kAdcon0 = 0x01F;
constexpr int kAdcon1 = 0x09F;
constexpr int kCmcon = 0x01F;
constexpr int kVrcon = 0x09F;

}  // namespace corvane::core::plain
