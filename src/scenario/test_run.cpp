#include "scenario/test_run.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "core/reset.h"
#include "scenario/debug_hint.h"
#include "scenario/subroutine_call.h"

namespace corvane::scenario {

namespace {

using inspect::PauseReason;
using inspect::QuantityKind;

// How the passing of time ended.
enum class Passed : std::uint8_t {
    Reached,  // the time that was to be reached
    Held,     // what the line waits for
    NoValue,  // what the line waits for has no value
    Ended,    // the program by itself
    Failed,   // another line, or a fault; it is told already
    Cancelled,
};

// A "never" or "always" that was met.
struct Standing {
    const Statement* statement;
    bool failsWhen;
};

class TestRun {
  public:
    TestRun(const Test& test, const Bench& bench, const Recorders& recorders)
        : test_(test),
          bench_(bench),
          recorders_(recorders),
          processor_(core::MakeProcessor(bench.model, bench.description)),
          run_(processor_),
          faults_(bench.faults, bench.names, processor_.description),
          schedule_(test.serials, bench.setup.clock, timeBeforeStart_) {
        core::FillProgramMemory(processor_, bench.program.image.words);
        processor_.eepromWriteTime = bench.setup.eepromWriteTime;
        processor_.adConversionTime = bench.setup.adConversionTime;
        AddObservers();
        WantQuantities();
    }

    std::optional<Outcome> Execute() {
        Start();
        for (const Statement& statement : test_.statements) {
            statement_ = &statement;
            if (!Perform(statement)) {
                break;
            }
        }
        if (recorders_.waveform != nullptr) {
            recorders_.waveform->End(run_.Now());
            WriteWaveform();
        }
        if (isCancelled_) {
            return std::nullopt;
        }
        AddHint();
        return Outcome{test_.name, Time(), std::move(failure_), failedLine_};
    }

  private:
    void AddObservers() {
        if (bench_.faults.any()) {
            run_.Add(faults_);
        }
        if (recorders_.counts != nullptr) {
            run_.Add(*recorders_.counts);
        }
        if (recorders_.waveform != nullptr) {
            run_.Want(recorders_.waveform->Quantities());
            run_.Add(*recorders_.waveform);
        }
        schedule_.Join(run_);
    }

    void WantQuantities() {
        for (const Statement& statement : test_.statements) {
            if (statement.judgement.expression) {
                run_.Want(statement.judgement.expression->quantities);
            }
            for (const Assignment& assignment : statement.assignments) {
                run_.Want(assignment.value.quantities);
            }
            if (statement.action == Action::Call) {
                run_.Want(std::vector<inspect::Quantity>{{QuantityKind::Depth}});
            }
        }
    }

    void Start() {
        core::StartSimulation(processor_);
        for (const EepromByte& byte : bench_.setup.eeprom) {
            processor_.state.eepromMemory[static_cast<std::size_t>(byte.address)] =
                static_cast<std::uint8_t>(byte.value);
        }
        core::StateChanged(processor_);
        run_.Begin();
        if (recorders_.waveform != nullptr) {
            recorders_.waveform->Begin(run_.Now());
        }
    }

    // The time of the test: CLOCKS, and those before its last Start.
    std::int64_t Time() const { return timeBeforeStart_ + processor_.state.clockCycles; }
    std::int64_t Steps() const { return run_.Now().measurements.Steps(); }
    bool HasEnded() const { return processor_.state.stopRequested; }

    // False when the test is over.
    bool Perform(const Statement& statement) {
        const Inputs before = InputsOf(processor_.state);
        if (ChangesInputs(statement)) {
            hint_.Note(before, InputsOf(processor_.state), Steps());
            return true;
        }
        switch (statement.action) {
            case Action::Never:
            case Action::Always:
                standing_.push_back({&statement, statement.action == Action::Never});
                return true;
            case Action::Reset:
                hint_.GiveUp();
                Reset();
                return true;
            case Action::Call:
                hint_.GiveUp();
                return Call(statement);
            case Action::Expect:
                return Expect(statement);
            case Action::End:
                return End();
            default:
                return Wait(statement);
        }
    }

    // Does it, if the statement is one of those.
    bool ChangesInputs(const Statement& statement) {
        switch (statement.action) {
            case Action::Set:
                inspect::SetPin(processor_, statement.pin, statement.value == 1);
                run_.InputChanged();
                return true;
            case Action::Toggle:
            case Action::Press:
                Toggle(statement);
                return true;
            case Action::Analog:
                core::SetAnalogValue(processor_, statement.channel, statement.value);
                run_.InputChanged();
                return true;
            case Action::Hold:
                run_.Hold(statement.pin, statement.value == 1);
                return true;
            case Action::Release:
                run_.Release(statement.pin);
                return true;
            case Action::Serial:
                schedule_.Open(statement.serial, run_);
                return true;
            case Action::Send:
                schedule_.Send(statement.serial, statement.bytes, Time());
                schedule_.ApplyDue(run_, Time());
                return true;
            default:
                return false;
        }
    }

    void ApplyDue() {
        const Inputs before = InputsOf(processor_.state);
        schedule_.ApplyDue(run_, Time());
        hint_.Note(before, InputsOf(processor_.state), Steps());
    }

    void Toggle(const Statement& statement) {
        core::TogglePin(processor_, statement.pin, true);
        run_.InputChanged();
        if (statement.action == Action::Press) {
            schedule_.Release(statement.pin, Later(statement.duration));
        }
    }

    std::int64_t Later(std::int64_t duration) const {
        return duration < std::numeric_limits<std::int64_t>::max() - Time()
                   ? Time() + duration
                   : std::numeric_limits<std::int64_t>::max();
    }

    // Start once more; what is outside of the chip stays as it is, and so does the EEPROM.
    void Reset() {
        const core::ProcessorState before = processor_.state;
        timeBeforeStart_ = Time();
        core::StartSimulation(processor_);
        processor_.state.eepromMemory = before.eepromMemory;
        processor_.state.pinInputs = before.pinInputs;
        processor_.state.analogValues = before.analogValues;
        core::StateChanged(processor_);
        faults_.Begin();
        if (recorders_.waveform != nullptr) {
            recorders_.waveform->Restarted(timeBeforeStart_);
        }
        run_.Begin();
        run_.InputChanged();
    }

    bool Expect(const Statement& statement) {
        const inspect::Evaluation now = Judge(statement);
        if (now.error != nullptr || now.value == 0) {
            Fail(statement, now.error != nullptr ? now.error : IsFalseText(statement));
            return false;
        }
        return true;
    }

    bool End() {
        const bool slept = HasEnded() && EndText(processor_) == "SLEEP";
        if (!slept) {
            Fail(*statement_, HasEnded() ? EndedText() : "the program has not ended");
        }
        return slept;
    }

    bool Wait(const Statement& statement) {
        const std::int64_t end = Later(statement.duration);
        const bool isFor = statement.action == Action::For;
        if (statement.action == Action::WithinEnd) {
            return HasEnded() ? End() : WaitForEnd(statement, end);
        }
        if (statement.action == Action::Wait) {
            return WaitUntil(statement, end, Pass(end, nullptr, false));
        }
        const inspect::Evaluation now = Judge(statement);
        if (now.error != nullptr || (isFor && now.value == 0)) {
            Fail(statement, now.error != nullptr ? now.error : IsFalseText(statement));
            return false;
        }
        if (!isFor && now.value != 0) {
            return true;
        }
        const Passed passed = Pass(end, &statement.judgement, !isFor);
        if (isFor && passed == Passed::Held) {
            Fail(statement, IsFalseText(statement));
            return false;
        }
        if (!isFor && passed == Passed::Held && Time() <= end) {
            return true;
        }
        if (!isFor && (passed == Passed::Held || passed == Passed::Reached) && Time() >= end) {
            Fail(statement, statement.judgement.expression
                                ? "still 0 within " + statement.durationText
                                : "not received within " + statement.durationText);
            return false;
        }
        return WaitUntil(statement, end, passed);
    }

    bool WaitForEnd(const Statement& statement, std::int64_t end) {
        const Passed passed = Pass(end, nullptr, false);
        if (passed == Passed::Ended && Time() <= end) {
            return End();
        }
        if ((passed == Passed::Ended || passed == Passed::Reached) && Time() >= end) {
            Fail(statement, "the program has not ended within " + statement.durationText);
            return false;
        }
        return WaitUntil(statement, end, passed);
    }

    // Whether the time has passed as it should; tells what kept it from it.
    bool WaitUntil(const Statement& statement, std::int64_t end, Passed passed) {
        switch (passed) {
            case Passed::Reached:
                if (Time() < end) {
                    Fail(statement, "the test has taken its limit of " +
                                        inspect::TimeText(bench_.timeLimit, bench_.setup.clock));
                }
                break;
            case Passed::Ended:
                Fail(statement, EndedText());
                break;
            case Passed::NoValue:
                Fail(statement, error_);
                break;
            default:
                break;
        }
        return failure_.empty() && !isCancelled_;
    }

    // Executes steps up to the first one that ends at or after this time, or until the judgement is
    // (or is not) true.
    Passed Pass(std::int64_t end, const Judgement* awaited, bool holdsWhen) {
        end = std::min(end, bench_.timeLimit);
        SetConditions(awaited, holdsWhen);
        while (true) {
            if (Time() >= end) {
                return Passed::Reached;
            }
            if (HasEnded()) {
                return Passed::Ended;
            }
            if (bench_.isCancelled()) {
                isCancelled_ = true;
                return Passed::Cancelled;
            }
            constexpr std::int64_t kLongestSlice = 1'000'000;  // steps between two looks around
            const std::int64_t due = std::min(end, schedule_.NextDue(Time()));
            const inspect::Pause pause = run_.Advance(kLongestSlice, due - timeBeforeStart_);
            ApplyDue();
            WriteWaveform();
            const std::optional<Passed> passed = PassedAt(pause);
            if (passed) {
                return *passed;
            }
            if (HasFailedStanding()) {
                return Passed::Failed;
            }
            if (awaited != nullptr && !awaited->expression &&
                schedule_.Find(awaited->serial, awaited->received)) {
                return Passed::Held;
            }
        }
    }

    std::optional<Passed> PassedAt(const inspect::Pause& pause) {
        if (pause.reason == PauseReason::Observer) {
            failure_ = {UnderWay(), inspect::FaultText(*faults_.Found(), Scene())};
            failedLine_ = statement_->line;
            return Passed::Failed;
        }
        if (pause.reason != PauseReason::Condition) {
            return std::nullopt;
        }
        if (pause.index < conditionOwners_.size()) {
            const Statement& owner = *conditionOwners_[pause.index];
            Fail(owner, pause.error != nullptr ? pause.error : StandingText(owner));
            return Passed::Failed;
        }
        error_ = pause.error != nullptr ? pause.error : "";
        return pause.error != nullptr ? Passed::NoValue : Passed::Held;
    }

    void WriteWaveform() const {
        if (recorders_.waveform != nullptr) {
            recorders_.writeWaveform(recorders_.waveform->TakeText());
        }
    }

    // Those that are expressions are tested by the run, and what the line waits for behind them.
    void SetConditions(const Judgement* awaited, bool holdsWhen) {
        std::vector<inspect::Condition> conditions;
        conditionOwners_.clear();
        for (const Standing& standing : standing_) {
            if (standing.statement->judgement.expression) {
                conditions.push_back(
                    {*standing.statement->judgement.expression, standing.failsWhen});
                conditionOwners_.push_back(standing.statement);
            }
        }
        if (awaited != nullptr && awaited->expression) {
            conditions.push_back({*awaited->expression, holdsWhen});
        }
        run_.SetConditions(std::move(conditions));
    }

    // Those that wait for a received text.
    bool HasFailedStanding() {
        for (const Standing& standing : standing_) {
            const Judgement& judgement = standing.statement->judgement;
            if (!judgement.expression && schedule_.Find(judgement.serial, judgement.received)) {
                Fail(*standing.statement, "received");
                return true;
            }
        }
        return false;
    }

    inspect::Evaluation Judge(const Statement& statement) {
        const Judgement& judgement = statement.judgement;
        if (judgement.expression) {
            return inspect::Evaluate(*judgement.expression, run_.Now());
        }
        return {schedule_.Find(judgement.serial, judgement.received) ? 1 : 0};
    }

    // The subroutine's return leads to the last word of program memory, at which the call ends.
    bool Call(const Statement& statement) {
        if (HasEnded()) {
            Fail(statement, EndedText());
            return false;
        }
        const std::int64_t end = Later(statement.duration);
        const int pc = processor_.state.pc;
        const int stackPointer = processor_.state.stackPointer;
        const int place = bench_.model.programWords - 1;
        const std::string reason = BeginCall(processor_, faults_, run_.Now(), statement, place);
        if (!reason.empty()) {
            Fail(statement, reason);
            return false;
        }
        const Judgement returned = {.expression = HasReturned(run_.Now(), place)};
        run_.Measured().CountCall();
        const Passed passed = Pass(end, &returned, true);
        if (passed == Passed::Held && Time() <= end) {
            processor_.state.pc = pc;
            processor_.state.stackPointer = stackPointer;
            core::StateChanged(processor_);
            return true;
        }
        if ((passed == Passed::Held || passed == Passed::Reached) && Time() >= end) {
            Fail(statement, "not returned within " + statement.durationText);
            return false;
        }
        return WaitUntil(statement, end, passed);
    }

    inspect::Scene Scene() const { return {run_.Now(), bench_.program, bench_.setup.clock}; }

    std::string EndedText() const { return "the program has ended (" + EndText(processor_) + ")"; }

    static std::string IsFalseText(const Statement& statement) {
        return statement.judgement.expression ? "is 0" : "not received";
    }

    static std::string StandingText(const Statement& statement) {
        return statement.action == Action::Never ? "is not 0" : "is 0";
    }

    std::string UnderWay() const { return LineText(bench_.file, *statement_); }

    std::string Values(const Statement& statement) const {
        const Judgement& judgement = statement.judgement;
        if (judgement.expression) {
            return inspect::ValuesText(*judgement.expression, Scene());
        }
        std::string text = "PC = " + inspect::PlaceText(processor_.state.pc, bench_.program);
        if (!judgement.received.empty()) {
            text = test_.serials[judgement.serial].name + " = " +
                   QuotedText(schedule_.Received(judgement.serial)) + ", " + text;
        }
        return text;
    }

    void Fail(const Statement& statement, const std::string& reason) {
        failure_ = {LineText(bench_.file, statement)};
        failedLine_ = statement.line;
        if (&statement != statement_) {
            failure_.push_back("during " + UnderWay());
        }
        failure_.push_back(reason + ", " + inspect::AfterText(Scene()) + ": " + Values(statement));
    }

    void AddHint() {
        const std::string hint = hint_.Text(bench_.debugArguments, Steps());
        if (!failure_.empty() && !hint.empty()) {
            failure_.push_back(hint);
        }
    }

    const Test& test_;
    const Bench& bench_;
    const Recorders& recorders_;
    core::Processor processor_;
    inspect::ObservedRun run_;
    inspect::FaultFinder faults_;
    std::int64_t timeBeforeStart_ = 0;
    Schedule schedule_;
    DebugHint hint_;
    std::vector<Standing> standing_;
    std::vector<const Statement*> conditionOwners_;
    const Statement* statement_ = nullptr;  // under way
    std::string error_;                     // of what the line waits for
    std::vector<std::string> failure_;
    int failedLine_ = 0;
    bool isCancelled_ = false;
};

}  // namespace

std::optional<Outcome> RunTest(const Test& test, const Bench& bench, const Recorders& recorders) {
    return TestRun(test, bench, recorders).Execute();
}

}  // namespace corvane::scenario
