// The A/D converter. Data sheet: "Analog-to-Digital Converter (A/D) Module".

#include "core/cells.h"
#include "core/peripherals/peripherals.h"
#include "core/registers.h"
#include "core/schedule.h"

namespace corvane::core {

namespace {

constexpr int kAdon = 0x01;
constexpr int kGoDone = 0x04;
constexpr int kAdfm = 0x80;  // in ADCON1
constexpr int kAdif = 0x40;  // in PIR1

using AnalogPinFlags = decltype(ProcessorState::analogPinFlags);

// The channels that are analog, AN0 the lowest bit, and whether RA2 and RA3 are references.
constexpr AnalogPinFlags PortConfig(unsigned analogChannels, bool ra2IsReference,
                                    bool ra3IsReference) {
    AnalogPinFlags flags{};
    for (std::size_t channel = 0; channel < kAnalogChannels; ++channel) {
        flags[channel] = ((analogChannels >> channel) & 1U) != 0;
    }
    flags[kRa2Reference] = ra2IsReference;
    flags[kRa3Reference] = ra3IsReference;
    return flags;
}

// By PCFG3:PCFG0. Data sheet: "ADCON1 Register", A/D port configuration.
constexpr std::array<AnalogPinFlags, 16> kPortConfigs = {
    PortConfig(0b11111111, false, false), PortConfig(0b11110111, false, true),
    PortConfig(0b00011111, false, false), PortConfig(0b00010111, false, true),
    PortConfig(0b00001011, false, false), PortConfig(0b00000011, false, true),
    PortConfig(0b00000000, false, false), PortConfig(0b00000000, false, false),
    PortConfig(0b11110011, true, true),   PortConfig(0b00111111, false, false),
    PortConfig(0b00110111, false, true),  PortConfig(0b00110011, true, true),
    PortConfig(0b00010011, true, true),   PortConfig(0b00000011, true, true),
    PortConfig(0b00000001, false, false), PortConfig(0b00000001, true, true),
};

bool IsConverting(const ProcessorState& state) {
    constexpr int kBoth = kAdon | kGoDone;
    return (state.dataMemory[kAdcon0] & kBoth) == kBoth;
}

void StoreResult(ProcessorState& state) {
    const bool isRightJustified = AnySet(state.dataMemory[kAdcon1], kAdfm);
    const int shifted = isRightJustified ? state.adSample : state.adSample << 6;
    state.dataMemory[kAdresh] = static_cast<std::uint8_t>(shifted >> 8);
    state.dataMemory[kAdresl] = static_cast<std::uint8_t>(shifted);
}

// One step of the conversion, if one is in progress.
void Convert(Processor& processor) {
    ProcessorState& state = processor.state;
    if (!IsConverting(state)) {
        state.adElapsed = 0;
        return;
    }
    if (state.adElapsed == 0) {
        state.adSample = state.analogValues[(state.dataMemory[kAdcon0] >> 3) & 7];
    }
    state.adElapsed += kClocksPerCycle;
    if (state.adElapsed >= processor.adConversionTime) {
        state.adElapsed = 0;
        ClearBits(state.dataMemory[kAdcon0], kGoDone);
        SetBits(state.dataMemory[kPir1], kAdif);
        StoreResult(state);
    }
}

bool IsPartOf(const models::FamilyTraits& traits) {
    return traits.analogUnit == models::AnalogUnit::Converter;
}

void Configure(Processor& processor) {
    ProcessorState& state = processor.state;
    state.analogPinFlags = kPortConfigs[state.dataMemory[kAdcon1] & 0x0F];
}

void WriteAdcon1(Processor& processor, std::size_t cell, int value) {
    StoreMasked(processor, cell, value);
    Configure(processor);
    Tell(processor, News::PinUse);
}

void ClaimCells(CellTable& cells, const models::FamilyTraits& /*traits*/) {
    cells.Claim(kAdcon0, {.actsAtOnce = true});
    cells.Claim(kAdcon1, {.write = WriteAdcon1});
}

// Until the result is there.
std::int64_t NextDue(const Processor& processor) {
    const ProcessorState& state = processor.state;
    return state.adElapsed == 0 ? kNever : StepsUntil(processor.adConversionTime, state.adElapsed);
}

void Advance(Processor& processor, std::int64_t steps) {
    ProcessorState& state = processor.state;
    if (state.adElapsed != 0) {
        state.adElapsed += static_cast<int>(steps - 1) * kClocksPerCycle;
    }
    Convert(processor);
}

}  // namespace

const Peripheral kConverter = {
    .isPartOf = IsPartOf,
    .claimCells = ClaimCells,
    .configure = Configure,
    .unit = TimeUnit::Steps,
    .nextDue = NextDue,
    .advance = Advance,
};

}  // namespace corvane::core
