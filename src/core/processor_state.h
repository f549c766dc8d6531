// The simulated chip as plain data. Copying it is a snapshot, comparing two is ==. Program memory
// is not in it: no program changes that.
#pragma once

#include <array>
#include <cstdint>

#include "models/catalogue.h"
#include "models/description.h"

namespace corvane::core {

constexpr int kProgramCounterRange = 8192;  // 13 bits on every model
constexpr int kProgramCounterMask = kProgramCounterRange - 1;
constexpr int kMaxEepromBytes = 256;
constexpr int kStackLevels = 8;
constexpr int kClocksPerCycle = 4;  // oscillator clock cycles of one instruction cycle

// Values of lastInstruction that are no program word.
constexpr int kNoInstruction = -1;
constexpr int kInterruptEntry = -2;

using models::kAnalogChannels;
using models::kPortCount;

// Entries of analogPinFlags behind the channels AN0 to AN7.
constexpr int kRa2Reference = 8;  // RA2 is VREF- (PIC16F87x) or the voltage-reference output (62x)
constexpr int kRa3Reference = 9;  // RA3 is VREF+ (PIC16F87x)
constexpr int kAnalogPinFlags = 10;

struct ProcessorState {
    int pc = 0;                                                      // 0..8191
    int w = 0;                                                       // 0..255
    std::array<std::uint8_t, models::kDataMemorySize> dataMemory{};  // bank x 80h + file address
    std::array<std::uint8_t, kMaxEepromBytes> eepromMemory{};        // 0 beyond the model's size
    std::array<std::uint16_t, kStackLevels + 1> hardwareStack{};     // levels 1 to 8; cell 0 unused
    int stackPointer = kStackLevels;                                 // 1..8
    std::int64_t instructionCount = 0;                               // since Start
    std::int64_t clockCycles = 0;          // oscillator clock cycles since Start
    int lastInstruction = kNoInstruction;  // program word, kNoInstruction or kInterruptEntry
    int prescalerCount = 0;
    bool stopRequested = false;

    std::array<std::uint8_t, kPortCount> pinInputs{};   // input levels of the pins
    std::array<std::uint8_t, kPortCount> portValues{};  // what a read of PORTA to PORTE returns
    // 0..1023 on PIC16F87x; 0..500 hundredths of a volt of a 5 V supply on PIC16F62x
    std::array<int, kAnalogChannels> analogValues{};
    std::array<bool, kAnalogPinFlags> analogPinFlags{};
    int vrefValue = 0;  // comparator reference of PIC16F62x, hundredths of a volt

    bool eeWriteBusy = false;
    int eeWriteElapsed = 0;  // clock cycles
    int eeWriteAddress = 0;
    int eeWriteData = 0;
    int eeUnlockState = 0;  // 0..4, progress through the unlock sequence
    int adElapsed = 0;      // clock cycles of the conversion in progress
    int adSample = 0;       // value latched when it began

    bool operator==(const ProcessorState&) const = default;
};

}  // namespace corvane::core
