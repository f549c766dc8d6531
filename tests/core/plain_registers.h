// The plain engine's registers: data memory, ports, program counter, stack and Timer0.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/plain_engine.h"

namespace corvane::core::plain {

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
constexpr int kAdresh = 0x01E;
constexpr int kAdcon0 = 0x01F;
constexpr int kCmcon = 0x01F;
constexpr int kOptionReg = 0x081;
constexpr int kTrisa = 0x085;
constexpr int kPie1 = 0x08C;
constexpr int kPie2 = 0x08D;
constexpr int kAdresl = 0x09E;
constexpr int kAdcon1 = 0x09F;
constexpr int kVrcon = 0x09F;

template <typename Array>
auto& At(Array& array, int index) {
    return array.at(static_cast<std::size_t>(index));
}

inline std::uint8_t Byte(int value) {
    return static_cast<std::uint8_t>(value & 255);
}

class Registers {
  public:
    Registers(const Chip& chip, ProcessorState& state) : chip_(chip), s_(state) {}

    void InstructionCycle() {
        s_.clockCycles += 4;
        if (!Bit(kOptionReg, 5)) {
            TimerTick();
        }
    }

    void UpdatePortInputs() {
        for (int port = 0; port < PortCount(); ++port) {  // outputs forget what they are given
            At(s_.pinInputs, port) = Byte(At(s_.pinInputs, port) & Tris(port));
        }
        for (int channel = 0; channel < AnalogChannelCount(); ++channel) {
            const bool isReference = Is87x() && ((channel == 2 && s_.analogPinFlags[8]) ||
                                                 (channel == 3 && s_.analogPinFlags[9]));
            if (At(s_.analogPinFlags, channel) || isReference) {
                const Pin pin = PinOf(channel);
                At(s_.pinInputs, pin.port) = Byte(At(s_.pinInputs, pin.port) & ~(1 << pin.bit));
            }
        }
        for (int port = 0; port < PortCount(); ++port) {
            const int latch = Cell(kPorta + port);
            At(s_.portValues, port) =
                Byte((latch & ~Tris(port)) | (At(s_.pinInputs, port) & Tris(port)));
        }
        for (int channel = 0; channel < AnalogChannelCount(); ++channel) {
            ComputeAnalogValue(channel);
        }
    }

  protected:
    // The family.

    bool Is8x() const { return chip_.model->family == models::ModelFamily::Pic16F8x; }
    bool Is62x() const { return chip_.model->family == models::ModelFamily::Pic16F62x; }
    bool Is87x40() const { return chip_.model->family == models::ModelFamily::Pic16F87x40; }
    bool Is87x() const { return !Is8x() && !Is62x(); }
    int PortCount() const { return Is87x40() ? 5 : Is87x() ? 3 : 2; }
    int AnalogChannelCount() const { return Is8x() ? 0 : Is62x() ? 4 : Is87x40() ? 8 : 5; }

    static Pin PinOf(int channel) {
        return channel < 4 ? Pin{0, channel} : channel == 4 ? Pin{0, 5} : Pin{4, channel - 5};
    }

    // Data memory.

    int Cell(int index) const { return At(s_.dataMemory, index); }
    void SetCell(int index, int value) { At(s_.dataMemory, index) = Byte(value); }
    bool Bit(int index, int bit) const { return (Cell(index) & (1 << bit)) != 0; }
    void SetBit(int index, int bit, bool value) {
        SetCell(index, (Cell(index) & ~(1 << bit)) | (value ? 1 << bit : 0));
    }
    int Tris(int port) const { return Cell(kTrisa + port); }

    int ResolveAddress(int f) const {
        const int address =
            f != 0 ? f + (Cell(kStatus) & 0x60) * 4 : Cell(kFsr) + (Cell(kStatus) & 0x80) * 2;
        return At(chip_.description.addressMap, address);
    }

    int Read(int f) {
        UpdatePortInputs();
        const int cell = ResolveAddress(f);
        const int port = cell - kPorta;
        return port >= 0 && port < PortCount() ? At(s_.portValues, port) : Cell(cell);
    }

    void Write(int f, int value) {
        const int cell = ResolveAddress(f);
        if (cell == kPcl) {
            SetPc(Cell(kPclath) * 256 + value);
            InstructionCycle();
        } else {
            SetCell(cell, At(chip_.description.writeMask, cell) & value);
        }
        if (cell == kTmr0 && !Bit(kOptionReg, 3)) {
            s_.prescalerCount = 0;
        }
    }

    // A digital pin or an output drives its channel to one end of the scale.
    void ComputeAnalogValue(int channel) {
        const Pin pin = PinOf(channel);
        int& value = At(s_.analogValues, channel);
        if ((Tris(pin.port) & (1 << pin.bit)) != 0 && At(s_.analogPinFlags, channel)) {
            return;
        }
        value = (At(s_.portValues, pin.port) & (1 << pin.bit)) == 0 ? 0 : Is87x() ? 1023 : 500;
        if (channel == 2 && s_.analogPinFlags[kRa2Reference]) {
            value = Is87x() ? 0 : s_.vrefValue;
        }
        if (Is87x() && channel == 3 && s_.analogPinFlags[kRa3Reference]) {
            value = 1023;
        }
    }

    // Program counter and stack.

    void SetPc(int address) {
        s_.pc = address;
        SetCell(kPcl, address);
    }

    void Push(int address) {
        s_.stackPointer = s_.stackPointer == 8 ? 1 : s_.stackPointer + 1;
        At(s_.hardwareStack, s_.stackPointer) = static_cast<std::uint16_t>(address);
    }

    void Return() {
        InstructionCycle();
        SetPc(At(s_.hardwareStack, s_.stackPointer));
        s_.stackPointer = s_.stackPointer == 1 ? 8 : s_.stackPointer - 1;
    }

    void TimerTick() {
        const bool prescalerIsTheWatchdogs = Bit(kOptionReg, 3);
        const int rate = 2 << (Cell(kOptionReg) & 7);
        if (!prescalerIsTheWatchdogs) {
            s_.prescalerCount += 1;
            if (s_.prescalerCount < rate) {
                return;
            }
            s_.prescalerCount = 0;
        }
        SetCell(kTmr0, Cell(kTmr0) + 1);
        if (Cell(kTmr0) == 0) {
            SetBit(kIntcon, 2, true);
        }
    }

    void IncrementPc() { SetPc((s_.pc + 1) % 8192); }

    const Chip& chip_;
    ProcessorState& s_;
};

}  // namespace corvane::core::plain
