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
    for (int channel = traits.firstChannels[port]; channel < traits.firstChannels[port + 1];
         ++channel) {
        const auto index = static_cast<std::size_t>(channel);
        visit(index, 1 << traits.analogPins[index].bit);
    }
}

bool HasChannels(const models::FamilyTraits& traits, std::size_t port) {
    return traits.firstChannels[port] < traits.firstChannels[port + 1];
}

bool HasConverter(const models::FamilyTraits& traits) {
    return traits.analogUnit == models::AnalogUnit::Converter;
}

// Those of its channels.
int AnalogPins(const ProcessorState& state, const models::FamilyTraits& traits, std::size_t port) {
    int pins = 0;
    ForEachChannel(traits, port, [&](std::size_t channel, int pin) {
        pins |= state.analogPinFlags[channel] ? pin : 0;
    });
    return pins;
}

// Those of the converter's references, which read low too.
int ReferencePins(const ProcessorState& state, const models::FamilyTraits& traits,
                  std::size_t port) {
    if (port != kA || !HasConverter(traits)) {
        return 0;
    }
    return (state.analogPinFlags[kRa2Reference] ? kRa2 : 0) |
           (state.analogPinFlags[kRa3Reference] ? kRa3 : 0);
}

// A reference pin that is not driven shows its channel the reference instead of a level: the ends
// of the converter's scale, or what the comparators' reference puts on RA2.
void ApplyReferences(ProcessorState& state, const models::FamilyTraits& traits, int analogInputs) {
    const bool hasConverter = HasConverter(traits);
    if (state.analogPinFlags[kRa2Reference] && (analogInputs & kRa2) == 0) {
        state.analogValues[kChannelOfRa2] = hasConverter ? 0 : state.vrefValue;
    }
    if (hasConverter && state.analogPinFlags[kRa3Reference] && (analogInputs & kRa3) == 0) {
        state.analogValues[kChannelOfRa3] = traits.analogFullScale;
    }
}

void UpdateAnalogPort(Processor& processor, std::size_t port) {
    ProcessorState& state = processor.state;
    const models::FamilyTraits& traits = *processor.traits;
    const int analogPins = AnalogPins(state, traits, port);
    const int low = analogPins | ReferencePins(state, traits, port);
    UpdateLevels(state, port, static_cast<std::uint8_t>(low));
    // A channel whose pin is digital, or an output, is driven to one end of the scale.
    const int analogInputs = analogPins & state.dataMemory[kTrisA + port];
    ForEachChannel(traits, port, [&](std::size_t channel, int pin) {
        if ((analogInputs & pin) == 0) {
            const bool isHigh = AnySet(state.portValues[port], pin);
            state.analogValues[channel] = isHigh ? traits.analogFullScale : 0;
        }
    });
    if (port == kA) {
        ApplyReferences(state, traits, analogInputs);
    }
}

// Whoever cares for levels sees those of the end of the last step, so that they may change at once
// only if nobody does.
bool MayChangeAtOnce(const Dispatch& dispatch) {
    return dispatch.attention == 0 && !HasFollowers(dispatch, News::Levels);
}

int ReadAnalogPort(Processor& processor, std::size_t cell) {
    return processor.state.portValues[cell - kPortA];
}

// Most writes leave most pins alone: without a new level of an output there is nothing to do.
void WriteAnalogPort(Processor& processor, std::size_t cell, int value) {
    const std::size_t port = cell - kPortA;
    StoreMasked(processor, cell, value);
    if (!MayChangeAtOnce(processor.dispatch)) {
        Tell(processor, News::PinUse);
    } else if (!OutputsAreUpToDate(processor.state, port)) {
        UpdateAnalogPort(processor, port);
    }
}

void WriteAnalogTris(Processor& processor, std::size_t cell, int value) {
    StoreMasked(processor, cell, value);
    if (MayChangeAtOnce(processor.dispatch)) {
        UpdateAnalogPort(processor, cell - kTrisA);
    } else {
        Tell(processor, News::PinUse);
    }
}

void WriteDigitalTris(Processor& processor, std::size_t cell, int value) {
    StoreMasked(processor, cell, value);
    UpdateLevels(processor.state, cell - kTrisA, 0);
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
            UpdateLevels(processor.state, port, 0);
        }
    }
}

}  // namespace corvane::core
