#include "inspect/measurements.h"

#include <algorithm>

#include "isa/instruction_set.h"

namespace corvane::inspect {

namespace {

int DepthChange(int word) {
    switch (isa::Classify(word)) {
        case isa::Operation::Call:
            return 1;
        case isa::Operation::Return:
        case isa::Operation::Retlw:
        case isa::Operation::Retfie:
            return -1;
        default:
            return 0;
    }
}

}  // namespace

void Measurements::Begin(const core::ProcessorState& state, const Wanted& wanted) {
    steps_ = 0;
    depth_ = 0;
    counts_.clear();
    wanted_ = wanted;
    measuresPins_ = std::ranges::any_of(wanted.pins, [](int pins) { return pins != 0; });
    levels_ = state.portValues;
    pins_ = {};
}

void Measurements::AfterStep(const Step& step, const core::ProcessorState& state) {
    ++steps_;
    if (step.IsInterruptEntry()) {
        ++depth_;
    } else {
        depth_ += DepthChange(step.word);
        if (wanted_.counts[static_cast<std::size_t>(step.address)]) {
            ++counts_[step.address];
        }
    }
    if (measuresPins_) {
        MeasurePins(state);
    }
}

void Measurements::MeasurePins(const core::ProcessorState& state) {
    for (std::size_t port = 0; port < levels_.size(); ++port) {
        const int changed = (levels_[port] ^ state.portValues[port]) & wanted_.pins[port];
        levels_[port] = state.portValues[port];
        for (int bit = 0; changed >> bit != 0; ++bit) {
            if (((changed >> bit) & 1) != 0) {
                MeasureEdge(pins_[port][static_cast<std::size_t>(bit)],
                            ((levels_[port] >> bit) & 1) != 0, state.clockCycles);
            }
        }
    }
}

void Measurements::MeasureEdge(PinTimes& pin, bool isRising, std::int64_t now) {
    ++pin.edges;
    if (isRising) {
        pin.low = pin.lastFall != 0 ? now - pin.lastFall : 0;
        pin.period = pin.lastRise != 0 ? now - pin.lastRise : 0;
        pin.lastRise = now;
    } else {
        pin.high = pin.lastRise != 0 ? now - pin.lastRise : 0;
        pin.lastFall = now;
    }
}

std::int64_t Measurements::CountOf(int address) const {
    const auto count = counts_.find(address);
    return count == counts_.end() ? 0 : count->second;
}

const PinTimes& Measurements::TimesOf(core::Pin pin) const {
    return pins_[static_cast<std::size_t>(pin.port)][static_cast<std::size_t>(pin.bit)];
}

}  // namespace corvane::inspect
