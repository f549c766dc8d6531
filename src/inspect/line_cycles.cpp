#include "inspect/line_cycles.h"

#include <utility>

namespace corvane::inspect {

namespace {

constexpr int kClocksPerCycle = 4;

}  // namespace

LineCycles::LineCycles(const project::Program& program, int pieces) : pieces_(pieces) {
    lineOfStart_.resize(core::kProgramCounterRange);
    for (const int address : project::LineStarts(program)) {
        const project::Place place = *project::PlaceAt(program, address);
        lineOfStart_[static_cast<std::size_t>(address)] = place.file == 0 ? place.line : -1;
    }
}

Look LineCycles::Needs(const Chip& /*chip*/) const {
    Look look;
    for (std::size_t address = 0; address < lineOfStart_.size(); ++address) {
        look.instructions[address] = lineOfStart_[address] != 0;
    }
    return look;
}

void LineCycles::Begin(const Moment& /*moment*/) {
    pass_.reset();
    firstBeginning_.reset();
    pieceCycles_.clear();
}

bool LineCycles::AfterStep(const Step& step, const Moment& moment) {
    const int line = lineOfStart_[static_cast<std::size_t>(step.address)];
    if (line == 0 || step.IsInterruptEntry()) {
        return false;
    }
    const std::int64_t beginning = moment.processor.state.clockCycles - step.clocks;
    End(beginning);
    pass_ = {line, beginning};
    firstBeginning_ = firstBeginning_.value_or(beginning);
    return false;
}

void LineCycles::End(std::int64_t now) {
    if (pass_) {
        pieceCycles_[pass_->line] = (now - pass_->beginning) / kClocksPerCycle;
    }
    pass_.reset();
}

// The pieces come from the present backwards. What came later is known already.
std::optional<std::int64_t> LineCycles::LastTrue(const Moment& moment) {
    const core::ProcessorState& state = moment.processor.state;
    if (lineOfStart_[static_cast<std::size_t>(state.pc)] != 0) {
        End(state.clockCycles);
    } else if (nextBeginning_) {
        End(*nextBeginning_);
    }
    cycles_.merge(pieceCycles_);
    nextBeginning_ = firstBeginning_ ? firstBeginning_ : nextBeginning_;
    --pieces_;
    return pieces_ > 0 ? std::nullopt : std::optional(moment.measurements.Steps());
}

}  // namespace corvane::inspect
