// The I/O ports. Data sheet: "I/O Ports".
#include "core/peripherals/ports.h"

#include "core/cells.h"
#include "core/peripherals/peripherals.h"
#include "core/schedule.h"

namespace corvane::core {

namespace {

constexpr std::size_t kA = 0;
constexpr std::uint8_t kRa2 = 0x04;
constexpr std::uint8_t kRa3 = 0x08;

constexpr std::size_t kChannelOfRa2 = 2;
constexpr std::size_t kChannelOfRa3 = 3;

// Calls visit(channel, mask of its pin) for the analog channels on a port.
template <typename Visit>
void ForEachChannel(const models::FamilyTraits& traits, std::size_t port, const Visit& visit) {
    for (std::size_t channel = 0; channel < static_cast<std::size_t>(traits.analogChannels);
         ++channel) {
        const models::Pin pin = traits.analogPins[channel];
        if (static_cast<std::size_t>(pin.port) == port) {
            visit(channel, 1 << pin.bit);
        }
    }
}

bool HasChannels(const models::FamilyTraits& traits, std::size_t port) {
    bool found = false;
    ForEachChannel(traits, port, [&found](std::size_t, int) { found = true; });
    return found;
}

bool HasConverter(const models::FamilyTraits& traits) {
    return traits.analogUnit == models::AnalogUnit::Converter;
}

// Analog inputs, and the converter's references.
int PinsThatReadLow(const ProcessorState& state, const models::FamilyTraits& traits,
                    std::size_t port) {
    int low = 0;
    ForEachChannel(traits, port, [&](std::size_t channel, int pin) {
        low |= state.analogPinFlags[channel] ? pin : 0;
    });
    if (port == kA && HasConverter(traits)) {
        low |= state.analogPinFlags[kRa2Reference] ? kRa2 : 0;
        low |= state.analogPinFlags[kRa3Reference] ? kRa3 : 0;
    }
    return low;
}

// A channel whose pin is digital, or an output: the pin drives it to one end of the scale.
bool IsDriven(const ProcessorState& state, std::size_t channel, std::size_t port, int pin) {
    return !state.analogPinFlags[channel] || !AnySet(state.dataMemory[kTrisA + port], pin);
}

// A reference pin shows its channel the reference instead of a level: the ends of the converter's
// scale, or what the comparators' reference puts on RA2.
void ApplyReferences(ProcessorState& state, const models::FamilyTraits& traits) {
    const bool hasConverter = HasConverter(traits);
    if (state.analogPinFlags[kRa2Reference] && IsDriven(state, kChannelOfRa2, kA, kRa2)) {
        state.analogValues[kChannelOfRa2] = hasConverter ? 0 : state.vrefValue;
    }
    if (hasConverter && state.analogPinFlags[kRa3Reference] &&
        IsDriven(state, kChannelOfRa3, kA, kRa3)) {
        state.analogValues[kChannelOfRa3] = traits.analogFullScale;
    }
}

void UpdateAnalogPort(Processor& processor, std::size_t port) {
    ProcessorState& state = processor.state;
    const models::FamilyTraits& traits = *processor.traits;
    UpdateLevels(state, port, static_cast<std::uint8_t>(PinsThatReadLow(state, traits, port)));
    ForEachChannel(traits, port, [&](std::size_t channel, int pin) {
        if (IsDriven(state, channel, port, pin)) {
            const bool isHigh = AnySet(state.portValues[port], pin);
            state.analogValues[channel] = isHigh ? traits.analogFullScale : 0;
        }
    });
    if (port == kA) {
        ApplyReferences(state, traits);
    }
}

// Whoever cares for levels sees those of the end of the last step, so that they may change at once
// only if nobody does.
void UpdateWrittenPort(Processor& processor, std::size_t port) {
    const Dispatch& dispatch = processor.dispatch;
    if (dispatch.attention != 0 || HasFollowers(dispatch, News::Levels)) {
        Tell(processor, News::PinUse);
    } else {
        UpdateAnalogPort(processor, port);
    }
}

int ReadAnalogPort(Processor& processor, std::size_t cell) {
    return processor.state.portValues[cell - kPortA];
}

void WriteAnalogPort(Processor& processor, std::size_t cell, int value) {
    StoreMasked(processor, cell, value);
    UpdateWrittenPort(processor, cell - kPortA);
}

void WriteAnalogTris(Processor& processor, std::size_t cell, int value) {
    StoreMasked(processor, cell, value);
    UpdateWrittenPort(processor, cell - kTrisA);
}

void WriteDigitalTris(Processor& processor, std::size_t cell, int value) {
    StoreMasked(processor, cell, value);
    UpdateDigitalPort(processor.state, cell - kTrisA);
}

void ClaimCells(CellTable& cells, const models::FamilyTraits& traits) {
    for (std::size_t port = 0; port < static_cast<std::size_t>(traits.portCount); ++port) {
        if (HasChannels(traits, port)) {
            cells.Claim(kPortA + port, {.read = ReadAnalogPort, .write = WriteAnalogPort});
            cells.Claim(kTrisA + port, {.write = WriteAnalogTris});
        } else {
            cells.ClaimForInstructions(kPortA + port,
                                       kReadEffect | kWriteEffect | kDigitalPortEffect);
            cells.Claim(kTrisA + port, {.write = WriteDigitalTris});
        }
    }
}

void Advance(Processor& processor, std::int64_t /*elapsed*/) {
    UpdateAllPorts(processor);
    Tell(processor, News::Levels);
}

}  // namespace

const Peripheral kPorts = {
    .claimCells = ClaimCells,
    .advance = Advance,
    .follows = MaskOf(News::PinUse),
};

void UpdateAllPorts(Processor& processor) {
    const models::FamilyTraits& traits = *processor.traits;
    for (std::size_t port = 0; port < static_cast<std::size_t>(traits.portCount); ++port) {
        if (HasChannels(traits, port)) {
            UpdateAnalogPort(processor, port);
        } else {
            UpdateDigitalPort(processor.state, port);
        }
    }
}

}  // namespace corvane::core
