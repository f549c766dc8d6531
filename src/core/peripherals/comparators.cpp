// The comparators and the voltage reference.
// Data sheet: "Comparator Module", "Voltage Reference Module".
#include "core/cells.h"
#include "core/peripherals/peripherals.h"
#include "core/registers.h"
#include "core/schedule.h"

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

// Parts of 5 V in hundredths of a volt, halves to the even number.
constexpr int PartOfSupply(int part, int parts) {
    const int quotient = part * 500 / parts;
    const int remainder = part * 500 % parts;
    const bool roundsUp = 2 * remainder > parts || (2 * remainder == parts && quotient % 2 != 0);
    return quotient + (roundsUp ? 1 : 0);
}

int VoltageReference(std::uint8_t vrcon) {
    if (!AnySet(vrcon, kVren)) {
        return 0;
    }
    const int tap = vrcon & 0x0F;
    return AnySet(vrcon, kVrr) ? PartOfSupply(tap, 24) : PartOfSupply(tap + 8, 32);
}

void SetAnalogPins(ProcessorState& state) {
    const std::uint8_t pins = kAnalogPins[state.dataMemory[kCmcon] & kModeBits];
    for (std::size_t channel = 0; channel < 4; ++channel) {
        state.analogPinFlags[channel] = ((pins >> channel) & 1) != 0;
    }
}

// vrefValue, the reference on RA2, and which of RA0 to RA3 are analog.
void Configure(Processor& processor) {
    ProcessorState& state = processor.state;
    const std::uint8_t vrcon = state.dataMemory[kVrcon];
    state.vrefValue = VoltageReference(vrcon);
    state.analogPinFlags[kRa2Reference] = AnySet(vrcon, kVroe);
    SetAnalogPins(state);
}

// C1OUT and C2OUT from the inputs that the mode connects.
void CompareInputs(ProcessorState& state) {
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

bool IsPartOf(const models::FamilyTraits& traits) {
    return traits.analogUnit == models::AnalogUnit::Comparators;
}

// CMCON and VRCON.
void WriteControl(Processor& processor, std::size_t cell, int value) {
    StoreMasked(processor, cell, value);
    Configure(processor);
    Tell(processor, News::PinUse);
}

void ClaimCells(CellTable& cells, const models::FamilyTraits& /*traits*/) {
    cells.Claim(kCmcon, {.write = WriteControl, .asksForLook = true});
    cells.Claim(kVrcon, {.write = WriteControl, .asksForLook = true});
}

void Advance(Processor& processor, std::int64_t /*elapsed*/) {
    CompareInputs(processor.state);
}

}  // namespace

const Peripheral kComparators = {
    .isPartOf = IsPartOf,
    .claimCells = ClaimCells,
    .configure = Configure,
    .advance = Advance,
    .follows = MaskOf(News::Levels),
};

}  // namespace corvane::core
