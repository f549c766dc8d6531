#include "scenario/subroutine_call.h"

#include <cstdint>
#include <vector>

#include "core/registers.h"
#include "core/reset.h"

namespace corvane::scenario {

namespace {

using inspect::QuantityKind;

constexpr int kByte = 0xFF;
constexpr int kPageMask = 0x18;  // of PCLATH

void SetCell(core::Processor& processor, inspect::FaultFinder& faults, int cell, int value,
             int mask) {
    std::uint8_t& content = processor.state.dataMemory[static_cast<std::size_t>(cell)];
    content = static_cast<std::uint8_t>((content & ~mask) | (value & mask));
    faults.Written(cell, mask);
}

void SetValue(core::Processor& processor, inspect::FaultFinder& faults,
              const inspect::Quantity& target, std::int64_t value) {
    constexpr int kWord = 0xFFFF;
    const auto bits = static_cast<int>(value & kWord);
    switch (target.kind) {
        case QuantityKind::W:
            processor.state.w = bits & kByte;
            break;
        case QuantityKind::CellBit:
            SetCell(processor, faults, target.place, (bits & 1) << target.second,
                    1 << target.second);
            break;
        case QuantityKind::CellPair:
            SetCell(processor, faults, target.second, bits >> 8, kByte);
            [[fallthrough]];
        default:
            SetCell(processor, faults, target.place, bits, kByte);
            break;
    }
}

// The reason why it is none of the target's values; empty when it is one.
std::string ReasonToRefuse(const inspect::Evaluation& value, const Assignment& assignment) {
    const int width = inspect::WidthOf(assignment.target);
    const bool fits = value.value < (std::int64_t{1} << width) &&
                      value.value >= -(std::int64_t{1} << (width - 1));
    if (value.error != nullptr) {
        return value.error;
    }
    return fits ? "" : std::to_string(value.value) + " does not fit " + assignment.name;
}

}  // namespace

std::string BeginCall(core::Processor& processor, inspect::FaultFinder& faults,
                      const inspect::Moment& now, const Statement& statement, int place) {
    std::vector<std::int64_t> values;
    for (const Assignment& assignment : statement.assignments) {
        const inspect::Evaluation value = inspect::Evaluate(assignment.value, now);
        if (std::string reason = ReasonToRefuse(value, assignment); !reason.empty()) {
            return reason;
        }
        values.push_back(value.value);
    }
    core::ProcessorState& state = processor.state;
    state.dataMemory[core::kPclath] = static_cast<std::uint8_t>(
        (state.dataMemory[core::kPclath] & ~kPageMask) | ((statement.address >> 8) & kPageMask));
    for (std::size_t i = 0; i < values.size(); ++i) {
        SetValue(processor, faults, statement.assignments[i].target, values[i]);
    }
    state.stackPointer = state.stackPointer % core::kStackLevels + 1;
    state.hardwareStack[static_cast<std::size_t>(state.stackPointer)] =
        static_cast<std::uint16_t>(place);
    state.pc = statement.address;
    faults.Pushed();
    core::StateChanged(processor);
    return "";
}

inspect::Expression HasReturned(const inspect::Moment& now, int place) {
    using inspect::Operator;
    const inspect::Quantity depth = {QuantityKind::Depth};
    return {.text = "",
            .code = {{Operator::Load, depth},
                     {Operator::Number, {}, now.measurements.Depth()},
                     {Operator::Equal},
                     {Operator::Load, {QuantityKind::Pc}},
                     {Operator::Number, {}, place},
                     {Operator::Equal},
                     {Operator::And}},
            .names = {},
            .quantities = {depth}};
}

}  // namespace corvane::scenario
