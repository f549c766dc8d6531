// A run that somebody looks at: the one loop that executes steps and lets observers and conditions
// see those that concern them. Looking changes nothing; between the steps that somebody must see,
// and when nobody looks at all, the engine runs as it does by itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "core/pins.h"
#include "core/processor.h"
#include "inspect/expression.h"
#include "inspect/look.h"
#include "inspect/measurements.h"

namespace corvane::inspect {

// Sees a run. It is told of each step that its Needs name, and perhaps of others.
class Observer {
  public:
    virtual ~Observer() = default;

    virtual Look Needs(const Chip& chip) const = 0;

    // The state is the one after the step. Whoever returns true ends the present Advance.
    virtual bool AfterStep(const Step& step, const Moment& moment) = 0;

    // After something at the pins has changed between two steps.
    virtual void AfterInput(const Moment& /*moment*/) {}
};

// Ends an Advance at the first step after which it is true (or is false, or has no value).
struct Condition {
    Expression expression;
    bool expected = true;
};

enum class PauseReason : std::uint8_t { Limit, Ended, Breakpoint, Observer, Condition };

struct Pause {
    PauseReason reason;
    std::size_t index = 0;        // of the observer or condition
    const char* error = nullptr;  // of a condition without value
};

// A moment that a run can be brought back to.
struct RunSnapshot {
    core::ProcessorState state;
    Measurements measurements;
};

class ObservedRun {
  public:
    // The processor holds its program already and outlives the run.
    explicit ObservedRun(core::Processor& processor);

    // These take effect with Begin or SetConditions. Observers are told in the order of the calls.
    void Add(Observer& observer) { observers_.push_back(&observer); }
    void SetBreakpoints(std::span<const int> addresses);
    void Want(std::span<const Quantity> quantities);

    // After Start: nothing has been executed and nothing measured.
    void Begin();

    // The same with a run that has come to this moment. Nothing is held.
    void Resume(const RunSnapshot& snapshot);

    // Conditions are tested in this order. All that their expressions measure must be wanted.
    void SetConditions(std::vector<Condition> conditions);

    // Executes steps until as many are done or clockCycles has reached the limit (both tested
    // before each step), the program ends by itself, pc is a breakpoint after a step, or an
    // observer or a condition wants it. Of several reasons at one step an observer goes before a
    // condition, and a condition before the others.
    Pause Advance(std::int64_t maxSteps, std::optional<std::int64_t> clockCycles = std::nullopt);

    // Must be called after something at the pins has been changed.
    void InputChanged();

    // Sets a pin's input level as a person does, now and whenever the pin becomes an input again.
    void Hold(core::Pin pin, bool level);
    void Release(core::Pin pin);

    Moment Now() const { return {processor_, measurements_}; }
    std::int64_t Steps() const { return measurements_.Steps(); }
    core::Processor& Processor() { return processor_; }
    Measurements& Measured() { return measurements_; }

  private:
    struct HeldPin {
        core::Pin pin;
        bool level;
        bool isApplied;  // since the pin was an output or an analog input last
    };
    struct Watched {
        Condition condition;
        Look look;
    };

    void LookAgain();
    bool MustLook() const;
    std::int64_t StepsBeforeWriteEnds() const;
    std::int64_t UnseenSteps(std::int64_t steps) const;
    std::int64_t StepsWithin(std::int64_t steps, std::optional<std::int64_t> clockCycles) const;
    std::optional<Pause> RunUnseen(std::int64_t steps);
    std::optional<Pause> LookAtSteps(std::int64_t steps);
    std::optional<Pause> LookAtStep(const Step& step);
    std::optional<Pause> PauseAfterStep() const;
    std::optional<Pause> TestConditions(const Step& step);
    void ApplyHolds();
    Step BeginStep() const;

    core::Processor& processor_;
    Chip chip_;
    std::vector<Observer*> observers_;
    std::vector<Watched> conditions_;
    std::vector<HeldPin> holds_;
    Addresses breakpoints_;
    Wanted wanted_;
    Measurements measurements_;
    Look measuringLook_;
    Look look_;
    bool lookAtNext_ = false;  // whatever it is: all conditions are to be tested
};

// Sets the level of a pin as a person does with its button; nothing when it has that level.
void SetPin(core::Processor& processor, core::Pin pin, bool level);

}  // namespace corvane::inspect
