#include "app/simulation_control.h"

#include <algorithm>
#include <utility>

#include "common/decimal_text.h"
#include "core/reset.h"
#include "project/statistics.h"

namespace corvane::app {

namespace {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

// Steps between two looks at the clock: as many as take about this long. They are odd numbers, so
// that a loop of so many steps as a power of two is not shown at one point only.
constexpr nanoseconds kTimeBetweenClockReads = nanoseconds(50'000);
constexpr std::int64_t kFewestSteps = 1021;
constexpr std::int64_t kMostSteps = 1'000'000;

std::int64_t AdaptedSteps(std::int64_t steps, nanoseconds taken) {
    if (taken < kTimeBetweenClockReads) {
        return steps < kMostSteps ? 2 * steps + 1 : steps;
    }
    return std::max(kFewestSteps, (steps - 1) / 2);
}

constexpr nanoseconds kFastSlice = milliseconds(8);  // the longest a click waits
constexpr nanoseconds kRefreshInterval = nanoseconds(1'000'000'000 / 60 + 1);

// The pause after each step; none where there is none.
nanoseconds PauseOf(SimulationRate rate) {
    switch (rate) {
        case SimulationRate::Slow:
            return milliseconds(1500);
        case SimulationRate::Normal:
            return milliseconds(250);
        case SimulationRate::Fast:
            return milliseconds(50);
        case SimulationRate::StepByStep:
        case SimulationRate::ExtremelyFast:
            break;
    }
    return nanoseconds(0);
}

std::optional<PastPosition> PastOf(const RunHistory* history) {
    if (history == nullptr || history->Positions().Position() == history->Positions().Last()) {
        return std::nullopt;
    }
    return PastPosition{history->Positions().Position(), history->Positions().Last()};
}

}  // namespace

SimulationControl::SimulationControl(core::Processor& processor, AppSettings& settings,
                                     OpenWindows& windows, Dialogs& dialogs, Views& views,
                                     SliceTimer& timer, Clock& clock)
    : processor_(&processor),
      settings_(&settings),
      windows_(&windows),
      dialogs_(&dialogs),
      views_(&views),
      timer_(&timer),
      clock_(&clock),
      stepsBetweenClockReads_(kFewestSteps) {}

bool SimulationControl::RunsExtremelyFast() const {
    return phase_ == Phase::Running && settings_->Rate() == SimulationRate::ExtremelyFast &&
           !processor_->state.stopRequested;
}

RunStatus SimulationControl::Status() const {
    const int pc = processor_->state.pc;
    const SimulationRate rate = settings_->Rate();
    switch (phase_) {
        case Phase::Running:
            return {RunCondition::Running, rate, pc};
        case Phase::Going:
            return {RunCondition::Going, rate, pc};
        case Phase::Waiting:
            return {.condition = breakpointReached_ == pc ? RunCondition::AtBreakpoint
                                                          : RunCondition::Waiting,
                    .rate = rate,
                    .pc = pc,
                    .past = PastOf(history_.get()),
                    .remark = remark_};
        case Phase::Idle:
            break;
    }
    return {ending_.condition, rate, ending_.pc};
}

void SimulationControl::ForgetRun() {
    ending_ = {};
    session_.reset();
    history_.reset();
    remark_.clear();
}

void SimulationControl::SetBreakpoints(std::vector<int> addresses) {
    breakpoints_ = std::move(addresses);
    if (phase_ != Phase::Going) {
        core::SetBreakpoints(*processor_, breakpoints_);
    }
}

void SimulationControl::Start() {
    if (!CanStart()) {
        return;
    }
    isStopCommanded_ = false;
    breakpointReached_.reset();
    startTime_ = clock_->SecondsSinceMidnight() - 0.01F;
    core::StartSimulation(*processor_);
    session_ = BeginRecording(*processor_);
    BeginHistory();
    phase_ = Phase::Waiting;
    windows_->RefreshAfterReset();
    if (settings_->Rate() != SimulationRate::StepByStep) {
        EnterRunLoop();
    }
    views_->CommandsChanged();
}

void SimulationControl::Step() {
    if (!CanStep()) {
        return;
    }
    ExecuteOneStep();
    if (processor_->state.stopRequested) {
        CompleteStop();
    }
}

void SimulationControl::Stop() {
    if (!CanStop()) {
        return;
    }
    if (phase_ == Phase::Going) {
        isGoingCancelled_ = true;
        return;
    }
    isStopCommanded_ = true;
    if (phase_ == Phase::Running) {
        processor_->state.stopRequested = true;
        if (insideSlice_) {
            return;  // the slice ends after its current steps and then completes this
        }
        ShowState();
    }
    CompleteStop();
}

void SimulationControl::SetRate(SimulationRate rate) {
    settings_->SetRate(rate);
    if (phase_ == Phase::Running && rate == SimulationRate::StepByStep && !insideSlice_) {
        ShowState();
        LeaveRunLoop();
    } else if (phase_ == Phase::Waiting && rate != SimulationRate::StepByStep) {
        EnterRunLoop();
    }
    views_->CommandsChanged();
}

void SimulationControl::RunSlice() {
    if (phase_ != Phase::Running || insideSlice_ || IsPausing()) {
        return;
    }
    insideSlice_ = true;
    if (settings_->Rate() == SimulationRate::ExtremelyFast) {
        ExecuteFastSlice();
    } else {
        ExecuteOneStep();
    }
    insideSlice_ = false;
    if (processor_->state.stopRequested) {
        CompleteStop();
    } else if (settings_->Rate() == SimulationRate::StepByStep) {
        LeaveRunLoop();
        views_->CommandsChanged();
    } else {
        BeginPause(settings_->Rate());
    }
}

void SimulationControl::BeginHistory() {
    remark_.clear();
    history_.reset();
    if (settings_->KeepHistory()) {
        history_ = std::make_unique<RunHistory>(
            *processor_, project::Program{},
            inspect::ReadClock(common::DecimalText(settings_->ClockFrequency()))
                .value_or(inspect::Clock{}));
        history_->Positions().CancelIf([this] { return IsGoingCancelled(); });
    }
}

bool SimulationControl::CanGoBack() const {
    return history_ != nullptr && phase_ != Phase::Going && history_->Positions().Position() > 0;
}

bool SimulationControl::IsGoingCancelled() {
    if (!isGoingCancelled_) {
        views_->GoingThroughHistory(history_->Positions().Position());
    }
    return isGoingCancelled_;
}

void SimulationControl::LookBack(inspect::Lookout& lookout) {
    if (history_ != nullptr && !RunsByItself()) {
        history_->Positions().LookBack(lookout);
        core::SetBreakpoints(*processor_, breakpoints_);
    }
}

void SimulationControl::Go(const Move& move) {
    if (history_ == nullptr || phase_ == Phase::Going || insideSlice_) {
        return;
    }
    settings_->SetRate(SimulationRate::StepByStep);
    pause_.reset();
    breakpointReached_.reset();
    isGoingCancelled_ = false;
    phase_ = Phase::Going;
    views_->CommandsChanged();
    Arrive(move(*history_));
}

void SimulationControl::Arrive(std::string remark) {
    remark_ = isGoingCancelled_ ? "Cancelled." : std::move(remark);
    phase_ = Phase::Waiting;
    ending_ = {};
    session_->end.reset();
    core::SetBreakpoints(*processor_, breakpoints_);
    views_->ArrivedInHistory();
    ShowState();
    if (processor_->state.stopRequested) {
        isStopCommanded_ = false;
        CompleteStop();
    } else {
        views_->BringPcIntoView();
    }
}

core::RunResult SimulationControl::RunSteps(std::int64_t steps) {
    remark_.clear();
    return history_ != nullptr ? history_->Run(steps) : core::Run(*processor_, steps);
}

void SimulationControl::EnterRunLoop() {
    phase_ = Phase::Running;
    pause_.reset();
    nextRefresh_ = clock_->SteadyTime();
    timer_->ScheduleSlice(nanoseconds(0));
}

void SimulationControl::LeaveRunLoop() {
    phase_ = Phase::Waiting;
    pause_.reset();
}

void SimulationControl::ExecuteOneStep() {
    breakpointReached_.reset();
    if (RunSteps(1).breakpointReached) {
        BreakpointReached();
    }
    ShowState();
    ShowBreakpoint();
}

void SimulationControl::ExecuteFastSlice() {
    breakpointReached_.reset();
    nanoseconds now = clock_->SteadyTime();
    const nanoseconds end = std::min(now + kFastSlice, nextRefresh_);
    bool finished = false;
    do {
        const nanoseconds begin = now;
        const core::RunResult result = RunSteps(stepsBetweenClockReads_);
        if (result.breakpointReached) {
            BreakpointReached();
        }
        finished = result.breakpointReached || processor_->state.stopRequested;
        now = clock_->SteadyTime();
        stepsBetweenClockReads_ = AdaptedSteps(stepsBetweenClockReads_, now - begin);
    } while (!finished && now < end);
    if (finished || now >= nextRefresh_) {
        nextRefresh_ = now + kRefreshInterval;
        ShowState();
        ShowBreakpoint();
    }
}

void SimulationControl::ShowState() {
    windows_->RefreshAfterChange();
    views_->CommandsChanged();
}

void SimulationControl::ShowBreakpoint() {
    if (breakpointReached_) {
        views_->BringPcIntoView();
    }
}

void SimulationControl::BreakpointReached() {
    breakpointReached_ = processor_->state.pc;
    settings_->SetRate(SimulationRate::StepByStep);
}

void SimulationControl::BeginPause(SimulationRate rate) {
    const nanoseconds length = PauseOf(rate);
    if (length > nanoseconds(0)) {
        pause_ = Pause{.rate = rate, .end = clock_->SteadyTime() + length};
    }
    timer_->ScheduleSlice(length);
}

bool SimulationControl::IsPausing() {
    if (!pause_) {
        return false;
    }
    const nanoseconds now = clock_->SteadyTime();
    if (now < pause_->end) {
        timer_->ScheduleSlice(pause_->end - now);
        return true;
    }
    const SimulationRate ended = pause_->rate;
    pause_.reset();
    if (settings_->Rate() > ended && settings_->Rate() <= SimulationRate::Fast) {
        BeginPause(settings_->Rate());
    }
    return pause_.has_value();
}

void SimulationControl::TogglePin(core::Pin pin) {
    if (!SimulationRunning()) {
        core::TogglePin(*processor_, pin, false);
        return;
    }
    RecordEvent({.clocks = processor_->state.clockCycles, .pin = pin},
                {.action = inspect::StimulusAction::Toggle, .pin = pin});
}

void SimulationControl::SetAnalogValue(int channel, int value) {
    if (!SimulationRunning()) {
        core::SetAnalogValue(*processor_, channel, value);
        return;
    }
    RecordEvent({.clocks = processor_->state.clockCycles, .channel = channel, .value = value},
                {.action = inspect::StimulusAction::Analog, .channel = channel, .value = value});
}

void SimulationControl::RecordEvent(PinEvent event, const inspect::StimulusEvent& stimulus) {
    if (phase_ == Phase::Going) {
        return;
    }
    if (history_ != nullptr) {
        TellFuture(history_->Positions().Do(stimulus));
    } else {
        inspect::Apply(stimulus, *processor_);
    }
    session_->events.push_back(event);
}

void SimulationControl::Edit(const std::function<void(core::Processor& processor)>& change) {
    if (!SimulationRunning()) {
        change(*processor_);
        return;
    }
    session_->hasChangedValues = true;
    if (history_ != nullptr) {
        TellFuture(history_->Positions().Edit(change));
    } else {
        change(*processor_);
    }
}

// What was done at the pins later than now has not been done in the new future.
void SimulationControl::TellFuture(inspect::History::EventEffect effect) {
    remark_.clear();
    if (effect == inspect::History::EventEffect::NewFuture) {
        remark_ = "A new future begins here: what came later is forgotten.";
        std::erase_if(session_->events, [this](const PinEvent& event) {
            return event.clocks > processor_->state.clockCycles;
        });
    }
    views_->CommandsChanged();
}

void SimulationControl::CompleteStop() {
    phase_ = Phase::Idle;
    session_->end = EndOf(*processor_);
    pause_.reset();
    ending_ = {.condition = isStopCommanded_ ? RunCondition::Stopped : RunCondition::Ended,
               .pc = processor_->state.pc};
    const std::string statistics = project::StatisticsMessage(
        processor_->state, startTime_, clock_->SecondsSinceMidnight(), settings_->ClockFrequency());
    views_->CommandsChanged();
    dialogs_->Inform(statistics);
}

}  // namespace corvane::app
