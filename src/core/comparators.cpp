#include "core/comparators.h"

#include <cmath>

#include "core/registers.h"

namespace corvane::core {

namespace {

constexpr int kModeBits = 0x07;  // CM2:CM0
constexpr int kCis = 0x08;
constexpr int kC1Inv = 0x10;
constexpr int kC2Inv = 0x20;
constexpr int kC1Out = 0x40;
constexpr int kC2Out = 0x80;

constexpr int kVroe = 0x40;
constexpr int kVrr = 0x20;
constexpr int kVren = 0x80;

// Bit k: RAk is analog, by comparator mode.
constexpr std::array<std::uint8_t, 8> kAnalogPins = {0x0F, 0x0F, 0x0F, 0x07,
                                                     0x0F, 0x06, 0x07, 0x00};

void Compare(std::uint8_t& cmcon, int positive, int negative, int outputBit, int invertBit) {
    if (positive == negative) {
        return;
    }
    const bool isHigh = (positive > negative) != AnySet(cmcon, invertBit);
    if (isHigh) {
        SetBits(cmcon, outputBit);
    } else {
        ClearBits(cmcon, outputBit);
    }
}

}  // namespace

void VoltageReferenceUpdate(ProcessorState& state) {
    const std::uint8_t vrcon = state.dataMemory[kVrcon];
    const double tap = vrcon & 0x0F;
    double volts = 0;  // hundredths
    if (AnySet(vrcon, kVren)) {
        volts = AnySet(vrcon, kVrr) ? tap * 500 / 24 : tap * 500 / 32 + 125;
    }
    state.vrefValue = static_cast<int>(std::nearbyint(volts));  // halves to even
    state.analogPinFlags[kRa2Reference] = AnySet(vrcon, kVroe);
}

void ComparatorPortConfig(ProcessorState& state) {
    const std::uint8_t pins = kAnalogPins[state.dataMemory[kCmcon] & kModeBits];
    for (std::size_t channel = 0; channel < 4; ++channel) {
        state.analogPinFlags[channel] = ((pins >> channel) & 1) != 0;
    }
}

void ComparatorUpdate(ProcessorState& state) {
    std::uint8_t& cmcon = state.dataMemory[kCmcon];
    const auto& ra = state.analogValues;
    const bool isSwitched = AnySet(cmcon, kCis);
    const int vref = state.vrefValue;
    switch (cmcon & kModeBits) {
        case 1:
            Compare(cmcon, ra[2], isSwitched ? ra[3] : ra[0], kC1Out, kC1Inv);
            Compare(cmcon, ra[2], ra[1], kC2Out, kC2Inv);
            break;
        case 2:
            Compare(cmcon, vref, isSwitched ? ra[3] : ra[0], kC1Out, kC1Inv);
            Compare(cmcon, vref, isSwitched ? ra[2] : ra[1], kC2Out, kC2Inv);
            break;
        case 3:
        case 6:
            Compare(cmcon, ra[2], ra[0], kC1Out, kC1Inv);
            Compare(cmcon, ra[2], ra[1], kC2Out, kC2Inv);
            break;
        case 4:
            Compare(cmcon, ra[3], ra[0], kC1Out, kC1Inv);
            Compare(cmcon, ra[2], ra[1], kC2Out, kC2Inv);
            break;
        case 5:
            Compare(cmcon, ra[2], ra[1], kC2Out, kC2Inv);
            break;
        default:  // 0 and 7: the comparators are off
            break;
    }
}

}  // namespace corvane::core
