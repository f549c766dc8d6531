#include "app/simulation_control.h"

#include <algorithm>

#include "core/execution.h"
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
        case Phase::Waiting:
            return {breakpointReached_ == pc ? RunCondition::AtBreakpoint : RunCondition::Waiting,
                    rate, pc};
        case Phase::Idle:
            break;
    }
    return {ending_.condition, rate, ending_.pc};
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
    if (core::ExecuteStep(*processor_).breakpointReached) {
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
        const core::RunResult result = core::Run(*processor_, stepsBetweenClockReads_);
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

void SimulationControl::RecordPin(core::Pin pin) {
    if (SimulationRunning()) {
        session_->events.push_back({.clocks = processor_->state.clockCycles, .pin = pin});
    }
}

void SimulationControl::RecordAnalogValue(int channel, int value) {
    if (SimulationRunning()) {
        session_->events.push_back(
            {.clocks = processor_->state.clockCycles, .channel = channel, .value = value});
    }
}

void SimulationControl::RecordChangedValue() {
    if (SimulationRunning()) {
        session_->hasChangedValues = true;
    }
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
