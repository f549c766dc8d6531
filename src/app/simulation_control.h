// The Simulation and Rate commands as a state machine that a timer drives.
//
//   Idle --Start--> Waiting (Step By Step) or Running (any other rate)
//   Waiting --Step--> Waiting;  Waiting --SetRate--> Running
//   Running --SetRate(StepByStep), breakpoint--> Waiting
//   any --Go--> Going --arrival--> Waiting
//   Waiting, Running --Stop, a step that raises stopRequested--> Idle, with the statistics message
//
// While it runs it asks for its next slice through SliceTimer. At Extremely Fast a slice
// executes steps for some milliseconds; at the timed rates it executes one step and then pauses.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/app_settings.h"
#include "app/clock.h"
#include "app/dialogs.h"
#include "app/open_windows.h"
#include "app/run_history.h"
#include "app/run_status.h"
#include "app/session_recording.h"
#include "app/slice_timer.h"
#include "app/views.h"
#include "core/execution.h"
#include "core/processor.h"

namespace corvane::app {

class SimulationControl {
  public:
    SimulationControl(core::Processor& processor, AppSettings& settings, OpenWindows& windows,
                      Dialogs& dialogs, Views& views, SliceTimer& timer, Clock& clock);

    // True from Start until Stop completes.
    bool SimulationRunning() const { return phase_ != Phase::Idle; }
    // Does not wait for a person.
    bool RunsByItself() const { return phase_ == Phase::Running || phase_ == Phase::Going; }
    // Steps follow each other at Extremely Fast, so that only some of them are shown.
    bool RunsExtremelyFast() const;
    RunStatus Status() const;
    // The processor has been reset by something else than Start: nothing has run.
    void ForgetRun();

    // Where it stops by itself, from the next step on.
    void SetBreakpoints(std::vector<int> addresses);

    // What was done at the pins since the last Start; nothing without one.
    const std::optional<SessionRecording>& Session() const { return session_; }
    // What a person does to the chip, now. It begins a new future where the simulation has been
    // gone back in, and is ignored while that is being done.
    void TogglePin(core::Pin pin);
    void SetAnalogValue(int channel, int value);
    void Edit(const std::function<void(core::Processor& processor)>& change);

    // Which of the three commands are enabled; a disabled one does nothing.
    bool CanStart() const { return phase_ == Phase::Idle; }
    bool CanStep() const { return phase_ == Phase::Waiting; }
    bool CanStop() const { return phase_ != Phase::Idle; }
    // There are steps to go back to.
    bool CanGoBack() const;

    void Start();
    void Step();
    void Stop();

    // Of the simulation since the last Start; null when none is kept.
    const RunHistory* History() const { return history_.get(); }
    // Looks at the way here again, while it does not run by itself. Nothing changes.
    void LookBack(inspect::Lookout& lookout);
    // Goes elsewhere in the history and waits there for Step. The move returns a remark for the
    // status line; Stop cancels it.
    using Move = std::function<std::string(RunHistory& history)>;
    void Go(const Move& move);

    // Also stores the rate.
    void SetRate(SimulationRate rate);

    // Does what is due. Harmless at any time.
    void RunSlice();

  private:
    enum class Phase : std::uint8_t { Idle, Waiting, Running, Going };

    // The pause after a step. It keeps the length of the rate it began with; the rate that is in
    // force when it ends may add a shorter one.
    struct Pause {
        SimulationRate rate;
        std::chrono::nanoseconds end;
    };

    void BeginHistory();
    bool IsGoingCancelled();
    void Arrive(std::string remark);
    void RecordEvent(PinEvent event, const inspect::StimulusEvent& stimulus);
    void TellFuture(inspect::History::EventEffect effect);
    core::RunResult RunSteps(std::int64_t steps);
    void EnterRunLoop();
    void LeaveRunLoop();
    void ExecuteOneStep();
    void ExecuteFastSlice();
    void ShowState();
    void BeginPause(SimulationRate rate);
    bool IsPausing();
    void CompleteStop();
    void BreakpointReached();
    void ShowBreakpoint();

    core::Processor* processor_;
    AppSettings* settings_;
    OpenWindows* windows_;
    Dialogs* dialogs_;
    Views* views_;
    SliceTimer* timer_;
    Clock* clock_;
    Phase phase_ = Phase::Idle;
    bool insideSlice_ = false;
    std::int64_t stepsBetweenClockReads_;  // at Extremely Fast
    std::optional<Pause> pause_;
    std::chrono::nanoseconds nextRefresh_{0};
    float startTime_ = 0;  // seconds since midnight
    bool isStopCommanded_ = false;
    std::optional<SessionRecording> session_;
    std::optional<int> breakpointReached_;  // pc then
    std::vector<int> breakpoints_;
    std::unique_ptr<RunHistory> history_;
    bool isGoingCancelled_ = false;
    std::string remark_;  // on the last command, for the status line

    struct Ending {
        RunCondition condition = RunCondition::Idle;
        int pc = 0;
    };
    Ending ending_;  // of the last run
};

}  // namespace corvane::app
