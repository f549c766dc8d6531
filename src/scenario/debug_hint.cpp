#include "scenario/debug_hint.h"

namespace corvane::scenario {

namespace {

constexpr std::size_t kMostCommands = 40;

std::string Goto(std::int64_t step) {
    return "goto " + std::to_string(step);
}

}  // namespace

Inputs InputsOf(const core::ProcessorState& state) {
    Inputs inputs;
    for (std::size_t port = 0; port < inputs.pins.size(); ++port) {
        inputs.pins[port] = state.pinInputs[port];
    }
    for (std::size_t channel = 0; channel < inputs.analogValues.size(); ++channel) {
        inputs.analogValues[channel] = state.analogValues[channel];
    }
    return inputs;
}

void DebugHint::Note(const Inputs& before, const Inputs& after, std::int64_t step) {
    if (before == after) {
        return;
    }
    for (std::size_t port = 0; port < after.pins.size(); ++port) {
        for (int bit = 0; bit < 8; ++bit) {
            const int level = after.pins[port] >> bit & 1;
            if (level != (before.pins[port] >> bit & 1)) {
                Add(std::string("set R") + static_cast<char>('A' + port) + std::to_string(bit) +
                        " " + std::to_string(level),
                    step);
            }
        }
    }
    for (std::size_t channel = 0; channel < after.analogValues.size(); ++channel) {
        if (after.analogValues[channel] != before.analogValues[channel]) {
            Add("analog AN" + std::to_string(channel) + " " +
                    std::to_string(after.analogValues[channel]),
                step);
        }
    }
}

void DebugHint::Add(const std::string& command, std::int64_t step) {
    if (step != step_) {
        commands_.push_back(Goto(step));
        step_ = step;
    }
    commands_.push_back(command);
}

std::string DebugHint::Text(std::string_view arguments, std::int64_t step) const {
    if (!isPossible_ || arguments.empty() || commands_.size() > kMostCommands) {
        return "";
    }
    std::string text = "(";
    for (const std::string& command : commands_) {
        text += "echo " + command + "; ";
    }
    return text + "echo " + Goto(step) + "; cat) | corvane-cli debug " + std::string(arguments);
}

}  // namespace corvane::scenario
