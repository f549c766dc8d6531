#include "core/adc.h"

#include "core/registers.h"

namespace corvane::core {

namespace {

constexpr int kAdon = 0x01;
constexpr int kGoDone = 0x04;
constexpr int kAdfm = 0x80;  // in ADCON1
constexpr int kAdif = 0x40;  // in PIR1

struct PortConfig {
    std::uint8_t analogChannels;  // bit k: ANk
    bool ra2IsReference;
    bool ra3IsReference;
};

// By PCFG3:PCFG0. Data sheet: "ADCON1 Register", A/D port configuration.
constexpr std::array<PortConfig, 16> kPortConfigs = {{
    {0b11111111, false, false},
    {0b11110111, false, true},
    {0b00011111, false, false},
    {0b00010111, false, true},
    {0b00001011, false, false},
    {0b00000011, false, true},
    {0b00000000, false, false},
    {0b00000000, false, false},
    {0b11110011, true, true},
    {0b00111111, false, false},
    {0b00110111, false, true},
    {0b00110011, true, true},
    {0b00010011, true, true},
    {0b00000011, true, true},
    {0b00000001, false, false},
    {0b00000001, true, true},
}};

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

}  // namespace

void AdcPortConfig(ProcessorState& state) {
    const PortConfig& config = kPortConfigs[state.dataMemory[kAdcon1] & 0x0F];
    for (std::size_t channel = 0; channel < kAnalogChannels; ++channel) {
        state.analogPinFlags[channel] = ((config.analogChannels >> channel) & 1) != 0;
    }
    state.analogPinFlags[kRa2Reference] = config.ra2IsReference;
    state.analogPinFlags[kRa3Reference] = config.ra3IsReference;
}

void AdcUpdate(Processor& processor) {
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

}  // namespace corvane::core
