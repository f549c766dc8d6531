// Data EEPROM, A/D converter, comparators and voltage reference of the plain engine.
#include <array>
#include <cmath>
#include <cstddef>
#include <initializer_list>

#include "core/plain_engine.h"
#include "disasm/decoder.h"

namespace corvane::core::plain {

namespace {

// EECON1.
constexpr int kRd = 0;
constexpr int kWr = 1;
constexpr int kWren = 2;
constexpr int kWrerr = 3;
constexpr int kEepgd = 7;

// ADCON0.
constexpr int kAdon = 0;
constexpr int kGoDone = 2;

}  // namespace

void Engine::UpdatePeripherals() {
    if (IsPic16F8x()) {
        EepromUpdate();
    } else if (IsPic16F87x()) {
        AdcPortConfig();
        AdcUpdate();
        EepromUpdate();
    } else {
        VoltageReferenceUpdate();
        ComparatorPortConfig();
        ComparatorUpdate();
        EepromUpdate();
    }
}

std::string Engine::LastInstruction() const {
    if (state_.lastInstruction == kNoInstruction) {
        return "";
    }
    if (state_.lastInstruction == kInterruptEntry) {
        return "INTERRUPT!";
    }
    return disasm::DecodeInstruction(state_.lastInstruction);
}

// Data EEPROM.

Engine::EepromRegisters Engine::Eeprom() const {
    if (IsPic16F8x()) {
        return {0x088, 0x008, 0x009, 0x088, 0x10, "MOVWF 0x09"};
    }
    if (IsPic16F87x()) {
        return {0x18C, 0x10C, 0x10D, 0x00D, 0x10, "MOVWF 0x0D"};
    }
    return {0x09C, 0x09A, 0x09B, 0x00C, 0x80, "MOVWF 0x1D"};
}

void Engine::EepromUpdate() {
    EepromRead();
    if (!state_.eeWriteBusy) {
        EepromUnlock();
    }
    if (!state_.eeWriteBusy) {
        return;
    }
    EepromWriteTiming();
}

void Engine::EepromRead() {
    const EepromRegisters registers = Eeprom();
    if (!Bit(registers.eecon1, kRd)) {
        return;
    }
    SetBit(registers.eecon1, kRd, false);
    if (state_.eeWriteBusy) {
        return;
    }
    SetBit(registers.eecon1, kWr, false);
    const bool programMemorySelected = IsPic16F87x() && Bit(registers.eecon1, kEepgd);
    const int address = Cell(registers.eeadr);
    if (address < chip_.model->eepromBytes && !programMemorySelected) {
        SetCell(registers.eedata, state_.eepromMemory.at(static_cast<std::size_t>(address)));
    }
}

void Engine::EepromUnlock() {
    const EepromRegisters registers = Eeprom();
    const std::string text = LastInstruction();
    if (state_.eeUnlockState == 0) {
        state_.eeUnlockState = text == "MOVLW 0x55" ? 1 : 0;
    } else if (state_.eeUnlockState == 1) {
        state_.eeUnlockState = text == registers.unlockText ? 2 : 0;
    } else if (state_.eeUnlockState == 2) {
        state_.eeUnlockState = text == "MOVLW 0xAA" ? 3 : 0;
    } else if (state_.eeUnlockState == 3) {
        state_.eeUnlockState = text == registers.unlockText ? 4 : 0;
    } else {
        const bool programMemorySelected = IsPic16F87x() && Bit(registers.eecon1, kEepgd);
        if (Bit(registers.eecon1, kWren) && Bit(registers.eecon1, kWr) && !programMemorySelected) {
            state_.eeWriteAddress = Cell(registers.eeadr);
            state_.eeWriteData = Cell(registers.eedata);
            state_.eeWriteBusy = true;
            state_.eeUnlockState = 0;
            state_.eeWriteElapsed = 0;
        } else {
            SetBit(registers.eecon1, kWr, false);
            state_.eeUnlockState = 0;
        }
    }
}

void Engine::EepromWriteTiming() {
    const EepromRegisters registers = Eeprom();
    state_.eeWriteElapsed += 4;
    SetBit(registers.eecon1, kWr, true);
    if (IsPic16F87x()) {
        SetBit(registers.eecon1, kEepgd, false);
    }
    if (state_.eeWriteElapsed < chip_.eepromWriteTime) {
        return;
    }
    SetBit(registers.eecon1, kWr, false);
    SetBit(registers.eecon1, kWrerr, false);
    SetCell(registers.flagRegister, Cell(registers.flagRegister) | registers.flagMask);
    state_.eeWriteBusy = false;
    state_.eeWriteElapsed = 0;
    if (state_.eeWriteAddress < chip_.model->eepromBytes) {
        state_.eepromMemory.at(static_cast<std::size_t>(state_.eeWriteAddress)) =
            static_cast<std::uint8_t>(state_.eeWriteData);
    }
}

// A/D converter.

void Engine::AdcPortConfig() {
    struct Setup {
        std::initializer_list<int> analogChannels;
        bool ra2IsReference, ra3IsReference;
    };
    static const std::array<Setup, 16> kSetups = {{
        {{0, 1, 2, 3, 4, 5, 6, 7}, false, false},
        {{0, 1, 2, 4, 5, 6, 7}, false, true},
        {{0, 1, 2, 3, 4}, false, false},
        {{0, 1, 2, 4}, false, true},
        {{0, 1, 3}, false, false},
        {{0, 1}, false, true},
        {{}, false, false},
        {{}, false, false},
        {{0, 1, 4, 5, 6, 7}, true, true},
        {{0, 1, 2, 3, 4, 5}, false, false},
        {{0, 1, 2, 4, 5}, false, true},
        {{0, 1, 4, 5}, true, true},
        {{0, 1, 4}, true, true},
        {{0, 1}, true, true},
        {{0}, false, false},
        {{0}, true, true},
    }};
    const Setup& setup = kSetups.at(static_cast<std::size_t>(Cell(kAdcon1) & 15));
    state_.analogPinFlags.fill(false);
    for (const int channel : setup.analogChannels) {
        state_.analogPinFlags.at(static_cast<std::size_t>(channel)) = true;
    }
    state_.analogPinFlags[kRa2Reference] = setup.ra2IsReference;
    state_.analogPinFlags[kRa3Reference] = setup.ra3IsReference;
}

void Engine::AdcUpdate() {
    if (!Bit(kAdcon0, kGoDone) || !Bit(kAdcon0, kAdon)) {
        state_.adElapsed = 0;
        return;
    }
    if (state_.adElapsed == 0) {
        const int channel = (Cell(kAdcon0) >> 3) & 7;
        state_.adSample = state_.analogValues.at(static_cast<std::size_t>(channel));
    }
    state_.adElapsed += 4;
    if (state_.adElapsed < chip_.adConversionTime) {
        return;
    }
    state_.adElapsed = 0;
    SetBit(kAdcon0, kGoDone, false);
    SetBit(kPir1, 6, true);
    const bool rightJustified = Bit(kAdcon1, 7);
    if (!rightJustified) {
        SetCell(kAdresh, state_.adSample / 4);
        SetCell(kAdresl, (state_.adSample & 3) * 64);
    } else {
        SetCell(kAdresh, state_.adSample / 256);
        SetCell(kAdresl, state_.adSample & 255);
    }
}

// Comparators and voltage reference.

void Engine::VoltageReferenceUpdate() {
    const bool enabled = Bit(kVrcon, 7);
    const bool lowRange = Bit(kVrcon, 5);
    const double vr = Cell(kVrcon) & 15;
    if (!enabled) {
        state_.vrefValue = 0;
    } else if (lowRange) {
        state_.vrefValue = static_cast<int>(std::lrint(vr / 24 * 500));
    } else {
        state_.vrefValue = static_cast<int>(std::lrint(vr / 32 * 500 + 125));
    }
    state_.analogPinFlags[kRa2Reference] = Bit(kVrcon, 6);
}

void Engine::ComparatorPortConfig() {
    static constexpr std::array<std::array<bool, 4>, 8> kAnalog = {{
        {true, true, true, true},
        {true, true, true, true},
        {true, true, true, true},
        {true, true, true, false},
        {true, true, true, true},
        {false, true, true, false},
        {true, true, true, false},
        {false, false, false, false},
    }};
    const auto mode = static_cast<std::size_t>(Cell(kCmcon) & 7);
    for (std::size_t channel = 0; channel < 4; ++channel) {
        state_.analogPinFlags.at(channel) = kAnalog.at(mode).at(channel);
    }
}

void Engine::ComparatorUpdate() {
    const int ra0 = state_.analogValues[0];
    const int ra1 = state_.analogValues[1];
    const int ra2 = state_.analogValues[2];
    const int ra3 = state_.analogValues[3];
    const int vref = state_.vrefValue;
    const bool cis = Bit(kCmcon, 3);
    const auto compare1 = [&](int plus, int minus) { CompareInputs(plus, minus, 6, 4); };
    const auto compare2 = [&](int plus, int minus) { CompareInputs(plus, minus, 7, 5); };
    switch (Cell(kCmcon) & 7) {
        case 1:
            compare1(ra2, cis ? ra3 : ra0);
            compare2(ra2, ra1);
            break;
        case 2:
            compare1(vref, cis ? ra3 : ra0);
            compare2(vref, cis ? ra2 : ra1);
            break;
        case 3:
        case 6:
            compare1(ra2, ra0);
            compare2(ra2, ra1);
            break;
        case 4:
            compare1(ra3, ra0);
            compare2(ra2, ra1);
            break;
        case 5:
            compare2(ra2, ra1);
            break;
        default:  // modes 0 and 7 update no output
            break;
    }
}

void Engine::CompareInputs(int plus, int minus, int outputBit, int invertBit) {
    const bool inverted = Bit(kCmcon, invertBit);
    if (plus > minus) {
        SetBit(kCmcon, outputBit, !inverted);
    }
    if (plus < minus) {
        SetBit(kCmcon, outputBit, inverted);
    }
}

}  // namespace corvane::core::plain
