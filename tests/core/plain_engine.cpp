// Data memory, ports, program counter, stack, clock, interrupts, reset and pins of the plain
// engine.
#include "core/plain_engine.h"

#include <cstddef>

namespace corvane::core::plain {

using models::ModelFamily;

namespace {

// Ports by number.
constexpr int kA = 0;
constexpr int kB = 1;
constexpr int kE = 4;

constexpr int kPcRange = 8192;

}  // namespace

// The family.

bool Engine::IsPic16F8x() const {
    return chip_.model->family == ModelFamily::Pic16F8x;
}

bool Engine::IsPic16F87x() const {
    return chip_.model->family == ModelFamily::Pic16F87x28 ||
           chip_.model->family == ModelFamily::Pic16F87x40;
}

bool Engine::IsPic16F87x40() const {
    return chip_.model->family == ModelFamily::Pic16F87x40;
}

bool Engine::IsPic16F62x() const {
    return chip_.model->family == ModelFamily::Pic16F62x;
}

int Engine::PortCount() const {
    if (IsPic16F87x40()) {
        return 5;
    }
    return IsPic16F87x() ? 3 : 2;
}

int Engine::AnalogFullScale() const {
    return IsPic16F87x() ? 1023 : 500;
}

int Engine::AnalogChannelCount() const {
    if (IsPic16F8x()) {
        return 0;
    }
    if (IsPic16F62x()) {
        return 4;
    }
    return IsPic16F87x40() ? 8 : 5;
}

// Data memory.

int Engine::Cell(int index) const {
    return state_.dataMemory.at(static_cast<std::size_t>(index));
}

void Engine::SetCell(int index, int value) {
    state_.dataMemory.at(static_cast<std::size_t>(index)) = static_cast<std::uint8_t>(value);
}

bool Engine::Bit(int index, int bit) const {
    return (Cell(index) & (1 << bit)) != 0;
}

void Engine::SetBit(int index, int bit, bool value) {
    const int others = Cell(index) & (255 - (1 << bit));
    SetCell(index, others | (value ? 1 << bit : 0));
}

int Engine::ResolveAddress(int f) const {
    int dataAddress = 0;
    if (f != 0) {
        dataAddress = f + (Cell(kStatus) & 0x60) * 4;
    } else {
        dataAddress = Cell(kFsr) + (Cell(kStatus) & 0x80) * 2;
    }
    return chip_.description.addressMap.at(static_cast<std::size_t>(dataAddress));
}

int Engine::ReadRegister(int f) {
    UpdatePortInputs();
    const int cell = ResolveAddress(f);
    if (cell >= kPorta && cell < kPorta + PortCount()) {
        return state_.portValues.at(static_cast<std::size_t>(cell - kPorta));
    }
    return Cell(cell);
}

void Engine::WriteRegister(int f, int value) {
    const int cell = ResolveAddress(f);
    if (cell == kPcl) {
        SetPc(Cell(kPclath) * 256 + value);
        InstructionCycle();
    } else {
        SetCell(cell, chip_.description.writeMask.at(static_cast<std::size_t>(cell)) & value);
    }
    if (cell == kTmr0 && !Bit(kOptionReg, 3)) {
        state_.prescalerCount = 0;
    }
}

// Ports.

int Engine::Tris(int port) const {
    return Cell(kTrisa + port);
}

void Engine::UpdatePortInputs() {
    ForgetLevelsOfOutputs();
    ClearLevelsOfAnalogPins();
    ComputePortValues();
    static constexpr std::array<AnalogPin, kAnalogChannels> kPins = {{{0, kA, 0},
                                                                      {1, kA, 1},
                                                                      {2, kA, 2},
                                                                      {3, kA, 3},
                                                                      {4, kA, 5},
                                                                      {5, kE, 0},
                                                                      {6, kE, 1},
                                                                      {7, kE, 2}}};
    for (const AnalogPin& pin : kPins) {
        if (pin.channel < AnalogChannelCount()) {
            ComputeAnalogValue(pin);
        }
    }
}

void Engine::ForgetLevelsOfOutputs() {
    for (int port = 0; port < PortCount(); ++port) {
        auto& inputs = state_.pinInputs.at(static_cast<std::size_t>(port));
        inputs = static_cast<std::uint8_t>(inputs & Tris(port));
    }
}

void Engine::ClearLevelsOfAnalogPins() {
    const auto& flags = state_.analogPinFlags;
    const auto clearIf = [&](bool isAnalog, int port, int bit) {
        if (isAnalog) {
            auto& inputs = state_.pinInputs.at(static_cast<std::size_t>(port));
            inputs = static_cast<std::uint8_t>(inputs & (255 - (1 << bit)));
        }
    };
    if (IsPic16F87x()) {
        clearIf(flags[0], kA, 0);
        clearIf(flags[1], kA, 1);
        clearIf(flags[2] || flags[kRa2Reference], kA, 2);
        clearIf(flags[3] || flags[kRa3Reference], kA, 3);
        clearIf(flags[4], kA, 5);
    }
    if (IsPic16F87x40()) {
        clearIf(flags[5], kE, 0);
        clearIf(flags[6], kE, 1);
        clearIf(flags[7], kE, 2);
    }
    if (IsPic16F62x()) {
        clearIf(flags[0], kA, 0);
        clearIf(flags[1], kA, 1);
        clearIf(flags[2], kA, 2);
        clearIf(flags[3], kA, 3);
    }
}

void Engine::ComputePortValues() {
    for (int port = 0; port < PortCount(); ++port) {
        const auto index = static_cast<std::size_t>(port);
        const int latch = Cell(kPorta + port);
        const int tris = Tris(port);
        state_.portValues.at(index) = static_cast<std::uint8_t>(
            ((latch & ~tris) | (tris & state_.pinInputs.at(index))) & 255);
    }
}

void Engine::ComputeAnalogValue(const AnalogPin& pin) {
    const auto& flags = state_.analogPinFlags;
    const bool isInput = (Tris(pin.port) & (1 << pin.bit)) != 0;
    if (isInput && flags.at(static_cast<std::size_t>(pin.channel))) {
        return;
    }
    const bool level =
        (state_.portValues.at(static_cast<std::size_t>(pin.port)) & (1 << pin.bit)) != 0;
    int value = level ? AnalogFullScale() : 0;
    if (IsPic16F87x() && pin.channel == 2 && flags[kRa2Reference]) {
        value = 0;
    }
    if (IsPic16F87x() && pin.channel == 3 && flags[kRa3Reference]) {
        value = 1023;
    }
    if (IsPic16F62x() && pin.channel == 2 && flags[kRa2Reference]) {
        value = state_.vrefValue;
    }
    state_.analogValues.at(static_cast<std::size_t>(pin.channel)) = value;
}

// Program counter and stack.

void Engine::SetPc(int address) {
    state_.pc = address;
    SetCell(kPcl, state_.pc & 255);
}

void Engine::IncrementPc() {
    SetPc(state_.pc + 1 == kPcRange ? 0 : state_.pc + 1);
}

void Engine::Push(int address) {
    state_.stackPointer += 1;
    if (state_.stackPointer == 9) {
        state_.stackPointer = 1;
    }
    state_.hardwareStack.at(static_cast<std::size_t>(state_.stackPointer)) =
        static_cast<std::uint16_t>(address);
}

int Engine::Pop() {
    const int address = state_.hardwareStack.at(static_cast<std::size_t>(state_.stackPointer));
    state_.stackPointer = state_.stackPointer == 1 ? 8 : state_.stackPointer - 1;
    return address;
}

// Clock, Timer0 and interrupts.

void Engine::InstructionCycle() {
    state_.clockCycles += 4;
    const bool countsExternalEdges = Bit(kOptionReg, 5);
    if (!countsExternalEdges) {
        TimerTick();
    }
}

void Engine::TimerTick() {
    const bool prescalerIsTheWatchdogs = Bit(kOptionReg, 3);
    const int rate = 1 << ((Cell(kOptionReg) & 7) + 1);
    int tmr0 = Cell(kTmr0);
    if (!prescalerIsTheWatchdogs) {
        state_.prescalerCount += 1;
        if (state_.prescalerCount >= rate) {
            state_.prescalerCount = 0;
            tmr0 += 1;
        }
    } else {
        tmr0 += 1;
    }
    if (tmr0 == 256) {
        tmr0 = 0;
        SetBit(kIntcon, 2, true);
    }
    SetCell(kTmr0, tmr0);
}

bool Engine::InterruptPending() const {
    const bool gie = Bit(kIntcon, 7);
    const bool peie = Bit(kIntcon, 6);
    if (!gie) {
        return false;
    }
    const bool timer0 = Bit(kIntcon, 2) && Bit(kIntcon, 5);
    const bool intPin = Bit(kIntcon, 1) && Bit(kIntcon, 4);
    const bool portB = Bit(kIntcon, 0) && Bit(kIntcon, 3);
    if (timer0 || intPin || portB) {
        return true;
    }
    if (IsPic16F8x()) {
        const bool eeif = Bit(0x088, 4);
        const bool eeie = Bit(kIntcon, 6);
        return eeif && eeie;
    }
    if (IsPic16F87x()) {
        return peie &&
               ((Cell(kPir1) & Cell(kPie1)) != 0 || (Cell(kPir2) & Cell(kPie2) & 0x59) != 0);
    }
    return peie && (Cell(kPir1) & Cell(kPie1) & 0xF7) != 0;
}

void Engine::EnterInterrupt() {
    state_.lastInstruction = kInterruptEntry;
    SetBit(kIntcon, 7, false);
    Push(state_.pc);
    SetPc(0x0004);
    InstructionCycle();
}

// The step.

void Engine::ExecuteStep() {
    powerFlags_ = Cell(kStatus) & 0x18;
    statusFlags_ = Cell(kStatus) & 0x07;
    if (InterruptPending()) {
        EnterInterrupt();
    } else {
        ExecuteInstruction();
    }
    UpdatePeripherals();
    UpdatePortInputs();
    if (state_.pc >= chip_.model->programWords) {
        state_.stopRequested = true;
    }
}

// Reset.

void Engine::Clean() {
    state_.lastInstruction = kNoInstruction;
    state_.instructionCount = 0;
    state_.clockCycles = 0;
    state_.pc = 0;
    state_.w = 0;
    state_.eepromMemory.fill(0);
    state_.hardwareStack.fill(0);
    state_.dataMemory.fill(0);
    for (const models::Sfr& sfr : chip_.description.sfrList) {
        if (sfr.address < 1000) {
            SetCell(sfr.address, sfr.resetValue);
        }
    }
    state_.stackPointer = 8;
    state_.prescalerCount = 0;
    state_.pinInputs.fill(0);
    state_.portValues.fill(0);
    state_.analogValues.fill(0);
    state_.analogPinFlags.fill(false);
    state_.vrefValue = 0;
    if (IsPic16F87x()) {
        AdcPortConfig();
    }
    if (IsPic16F62x()) {
        ComparatorPortConfig();
    }
    state_.eeWriteBusy = false;
    state_.eeWriteElapsed = 0;
    state_.eeWriteAddress = 0;
    state_.eeWriteData = 0;
    state_.eeUnlockState = 0;
    state_.adElapsed = 0;
    state_.adSample = 0;
}

void Engine::Start() {
    Clean();
    state_.stopRequested = false;
    InstructionCycle();
}

// Pins.

void Engine::TogglePin(Pin pin, bool simulationRunning) {
    auto& inputs = state_.pinInputs.at(static_cast<std::size_t>(pin.port));
    const bool oldLevel = (inputs & (1 << pin.bit)) != 0;
    inputs = static_cast<std::uint8_t>(inputs ^ (1 << pin.bit));
    if (simulationRunning) {
        if (pin.port == kA && pin.bit == 4) {
            ExternalClockEdge(!oldLevel);
        }
        if (pin.port == kB && pin.bit == 0) {
            IntPinEdge(oldLevel);
        }
        if (pin.port == kB && pin.bit >= 4) {
            PortBChange();
        }
    }
    UpdatePortInputs();
}

void Engine::ExternalClockEdge(bool newLevel) {
    const bool countsExternalEdges = Bit(kOptionReg, 5);
    const bool countsFallingEdges = Bit(kOptionReg, 4);
    if (!countsExternalEdges) {
        return;
    }
    if ((!newLevel && countsFallingEdges) || (newLevel && !countsFallingEdges)) {
        TimerTick();
    }
}

void Engine::IntPinEdge(bool oldLevel) {
    const bool onRisingEdge = Bit(kOptionReg, 6);
    if ((oldLevel && !onRisingEdge) || (!oldLevel && onRisingEdge)) {
        SetBit(kIntcon, 1, true);
    }
}

void Engine::PortBChange() {
    SetBit(kIntcon, 0, true);
}

void Engine::AcceptAnalogValue(int channel, int value) {
    state_.analogValues.at(static_cast<std::size_t>(channel)) = value;
    UpdatePortInputs();
}

}  // namespace corvane::core::plain
