#include "inspect/observed_run.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "core/execution.h"
#include "core/registers.h"
#include "core/reset.h"

namespace corvane::inspect {

namespace {

constexpr std::size_t kInterruptVector = 0x0004;

// The longest step: a skip by an instruction that writes PCL takes three instruction cycles.
constexpr std::int64_t kMostClocksOfAStep = std::int64_t{3} * core::kClocksPerCycle;

// The level that a person has given an input.
bool LevelOf(const core::ProcessorState& state, core::Pin pin) {
    return ((state.pinInputs[static_cast<std::size_t>(pin.port)] >> pin.bit) & 1) != 0;
}

}  // namespace

ObservedRun::ObservedRun(core::Processor& processor)
    : processor_(processor),
      chip_{*processor.model, processor.description,
            std::span(processor.programMemory)
                .first(static_cast<std::size_t>(processor.model->programWords))} {}

void ObservedRun::SetBreakpoints(std::span<const int> addresses) {
    breakpoints_.reset();
    for (const int address : addresses) {
        breakpoints_.set(static_cast<std::size_t>(address));
    }
}

void ObservedRun::Begin() {
    ApplyHolds();
    measurements_.Begin(processor_.state, wanted_);
    LookAgain();
}

void ObservedRun::Resume(const RunSnapshot& snapshot) {
    processor_.state = snapshot.state;
    core::StateChanged(processor_);
    measurements_ = snapshot.measurements;
    LookAgain();
}

void ObservedRun::SetConditions(std::vector<Condition> conditions) {
    conditions_.clear();
    for (Condition& condition : conditions) {
        Look look = LookAtChanges(condition.expression.quantities, chip_);
        conditions_.push_back({std::move(condition), look});
    }
    LookAgain();
}

void ObservedRun::Want(std::span<const Quantity> quantities) {
    AddWanted(quantities, wanted_);
    measuringLook_ |= LookToMeasure(quantities, chip_);
}

// Steps that must be seen are marked as breakpoints of the engine, so that it stops before them.
void ObservedRun::LookAgain() {
    look_ = measuringLook_;
    for (const Observer* observer : observers_) {
        look_ |= observer->Needs(chip_);
    }
    for (const Watched& watched : conditions_) {
        look_ |= watched.look;
    }
    for (const HeldPin& held : holds_) {
        look_.instructions |= WritesToPort(chip_, held.pin.port);
    }
    Addresses marks = breakpoints_;
    if (!look_.everyStep) {
        marks |= look_.instructions;
        marks[kInterruptVector] = marks[kInterruptVector] || look_.interruptEntries;
    }
    std::vector<int> addresses;
    for (std::size_t address = 0; address < marks.size(); ++address) {
        if (marks[address]) {
            addresses.push_back(static_cast<int>(address));
        }
    }
    core::SetBreakpoints(processor_, addresses);
    lookAtNext_ = !conditions_.empty();
}

bool ObservedRun::MustLook() const {
    const core::ProcessorState& state = processor_.state;
    return look_.everyStep || lookAtNext_ ||
           look_.instructions[static_cast<std::size_t>(state.pc)] ||
           (look_.eepromWrites && (state.eeUnlockState != 0 || StepsBeforeWriteEnds() == 0));
}

// Steps that leave the EEPROM as it is: a write, which takes each step for a cycle, stores its byte
// when it ends.
std::int64_t ObservedRun::StepsBeforeWriteEnds() const {
    const core::ProcessorState& state = processor_.state;
    if (!state.eeWriteBusy) {
        return std::numeric_limits<std::int64_t>::max();
    }
    const std::int64_t clocksLeft =
        std::int64_t{processor_.eepromWriteTime} - std::int64_t{state.eeWriteElapsed};
    return std::max<std::int64_t>(clocksLeft - 1, 0) / core::kClocksPerCycle;
}

// Steps that can be executed without passing a limit unseen; none when one is reached.
std::int64_t ObservedRun::StepsWithin(std::int64_t steps,
                                      std::optional<std::int64_t> clockCycles) const {
    if (!clockCycles) {
        return steps;
    }
    const std::int64_t clocksLeft = *clockCycles - processor_.state.clockCycles;
    return clocksLeft <= 0 ? 0 : std::min(steps, (clocksLeft - 1) / kMostClocksOfAStep + 1);
}

Pause ObservedRun::Advance(std::int64_t maxSteps, std::optional<std::int64_t> clockCycles) {
    const std::int64_t first = Steps();
    while (true) {
        const std::int64_t steps = StepsWithin(maxSteps - (Steps() - first), clockCycles);
        if (steps <= 0) {
            return {PauseReason::Limit};
        }
        const std::optional<Pause> pause =
            MustLook() ? LookAtSteps(steps) : RunUnseen(UnseenSteps(steps));
        if (pause) {
            return *pause;
        }
    }
}

std::int64_t ObservedRun::UnseenSteps(std::int64_t steps) const {
    return look_.eepromWrites ? std::min(steps, StepsBeforeWriteEnds()) : steps;
}

// Of these steps only an interrupt entry may have to be seen, and then it is the last one.
std::optional<Pause> ObservedRun::RunUnseen(std::int64_t steps) {
    const core::ProcessorState& state = processor_.state;
    const core::RunResult result = core::Run(processor_, steps);
    if (!look_.interruptEntries || state.lastInstruction != core::kInterruptEntry) {
        measurements_.CountSteps(result.steps);
        return PauseAfterStep();
    }
    measurements_.CountSteps(result.steps - 1);
    Step entry = BeginStep();
    entry.address = state.hardwareStack[static_cast<std::size_t>(state.stackPointer)];
    entry.word = core::kInterruptEntry;
    entry.clocks = core::kClocksPerCycle;
    return LookAtStep(entry);
}

std::optional<Pause> ObservedRun::LookAtSteps(std::int64_t steps) {
    const core::ProcessorState& state = processor_.state;
    for (; steps > 0 && MustLook(); --steps) {
        Step step = BeginStep();
        core::ExecuteStep(processor_);
        step.word = state.lastInstruction;
        step.clocks = state.clockCycles - step.clocks;
        if (const std::optional<Pause> pause = LookAtStep(step)) {
            return pause;
        }
    }
    return std::nullopt;
}

// The step at pc; its clocks are still those of its beginning.
Step ObservedRun::BeginStep() const {
    const core::ProcessorState& state = processor_.state;
    return {.address = state.pc,
            .word = core::kNoInstruction,
            .status = state.dataMemory[core::kStatus],
            .fsr = state.dataMemory[core::kFsr],
            .clocks = state.clockCycles};
}

std::optional<Pause> ObservedRun::LookAtStep(const Step& step) {
    if (!holds_.empty()) {
        ApplyHolds();
    }
    measurements_.AfterStep(step, processor_.state);
    std::optional<Pause> pause = PauseAfterStep();
    if (!conditions_.empty()) {
        const std::optional<Pause> failed = TestConditions(step);
        pause = failed ? failed : pause;
    }
    for (std::size_t i = 0; i < observers_.size(); ++i) {
        if (observers_[i]->AfterStep(step, Now()) &&
            !(pause && pause->reason == PauseReason::Observer)) {
            pause = {PauseReason::Observer, i};
        }
    }
    return pause;
}

std::optional<Pause> ObservedRun::PauseAfterStep() const {
    if (processor_.state.stopRequested) {
        return Pause{PauseReason::Ended};
    }
    if (breakpoints_[static_cast<std::size_t>(processor_.state.pc)]) {
        return Pause{PauseReason::Breakpoint};
    }
    return std::nullopt;
}

std::optional<Pause> ObservedRun::TestConditions(const Step& step) {
    const bool testAll = std::exchange(lookAtNext_, false);
    for (std::size_t i = 0; i < conditions_.size(); ++i) {
        const auto& [condition, look] = conditions_[i];
        const bool mayHaveChanged =
            testAll || look.everyStep || look.eepromWrites ||
            (step.IsInterruptEntry() ? look.interruptEntries
                                     : look.instructions[static_cast<std::size_t>(step.address)]);
        if (!mayHaveChanged) {
            continue;
        }
        const Evaluation now = Evaluate(condition.expression, Now());
        if (now.error != nullptr || (now.value != 0) == condition.expected) {
            return Pause{PauseReason::Condition, i, now.error};
        }
    }
    return std::nullopt;
}

void ObservedRun::InputChanged() {
    lookAtNext_ = !conditions_.empty();
    measurements_.AfterInput(processor_.state);
    for (Observer* observer : observers_) {
        observer->AfterInput(Now());
    }
}

void ObservedRun::Hold(core::Pin pin, bool level) {
    SetPin(processor_, pin, level);
    const auto held = std::find_if(holds_.begin(), holds_.end(),
                                   [pin](const HeldPin& other) { return other.pin == pin; });
    if (held != holds_.end()) {
        *held = {pin, level, true};
    } else {
        holds_.push_back({pin, level, true});
        LookAgain();
    }
    InputChanged();
}

void ObservedRun::Release(core::Pin pin) {
    std::erase_if(holds_, [pin](const HeldPin& held) { return held.pin == pin; });
}

void ObservedRun::ApplyHolds() {
    for (HeldPin& held : holds_) {
        const core::ProcessorState& state = processor_.state;
        const std::uint8_t tris =
            state.dataMemory[core::kTrisA + static_cast<std::size_t>(held.pin.port)];
        if (((tris >> held.pin.bit) & 1) == 0) {
            held.isApplied = false;
        } else if (!held.isApplied) {
            SetPin(processor_, held.pin, held.level);
            held.isApplied = LevelOf(state, held.pin) == held.level;
        }
    }
}

void SetPin(core::Processor& processor, core::Pin pin, bool level) {
    if (LevelOf(processor.state, pin) != level) {
        core::TogglePin(processor, pin, true);
    }
}

}  // namespace corvane::inspect
