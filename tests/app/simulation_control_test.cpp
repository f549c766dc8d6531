#include "app/simulation_control.h"

#include <gmock/gmock.h>

#include <random>

#include "app/debug_moves.h"
#include "fakes.h"

namespace corvane::app {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::nanoseconds;

constexpr int kNop = 0x0000;
constexpr int kSleep = 0x0063;
constexpr int kGoto0 = 0x2800;

class SimulationTest : public WorkbenchTest {
  public:
    void Prepare(SimulationRate rate, const std::vector<int>& words) {
        ASSERT_TRUE(StartUp());
        Load(words);
        Simulation().SetRate(rate);
        views.scheduled.reset();
    }

    SimulationControl& Simulation() { return workbench->Simulation(); }
    const core::ProcessorState& State() const { return workbench->Processor().state; }

    // The timer fires when it was asked to.
    void FireTimer() {
        ASSERT_TRUE(views.scheduled.has_value());
        clock.now += *views.scheduled;
        views.scheduled.reset();
        Simulation().RunSlice();
    }

    void ExpectCommands(bool start, bool step, bool stop) {
        const CommandStates commands = workbench->Commands();
        EXPECT_EQ(commands.canStart, start);
        EXPECT_EQ(commands.canStep, step);
        EXPECT_EQ(commands.canStop, stop);
        EXPECT_EQ(views.commandsSeen.back(), commands) << "the windows have been told";
    }
};

TEST_F(SimulationTest, StepByStep) {
    Prepare(SimulationRate::StepByStep, {kNop, kNop, kGoto0});
    ExpectCommands(true, false, false);
    Simulation().Step();
    Simulation().Stop();
    EXPECT_EQ(State().instructionCount, 0) << "neither is enabled";
    Open({Window::ProgramMemoryViewer, Window::EepromMemoryViewer, Window::HardwareStackViewer,
          Window::BreakpointsManager, Window::ChipView18});

    Simulation().Start();
    ExpectCommands(false, true, true);
    EXPECT_TRUE(Simulation().SimulationRunning());
    EXPECT_EQ(State().clockCycles, 4);
    EXPECT_EQ(views.Calls(), (Texts{"refresh 4", "refresh 6", "refresh 7", "refresh 11",
                                    "refresh 12", "refresh 1"}));
    for (const int cycles : {8, 12, 20}) {
        Simulation().Step();
        EXPECT_EQ(State().clockCycles, cycles);
        EXPECT_EQ(views.Calls(),
                  (Texts{"refresh 1", "refresh 6", "refresh 7", "refresh 11", "refresh 12"}));
    }
    EXPECT_FALSE(views.scheduled.has_value());
    Simulation().Start();
    EXPECT_EQ(State().clockCycles, 20) << "Start is disabled";

    clock.timeOfDay += 12;
    Simulation().Stop();
    ExpectCommands(true, false, false);
    EXPECT_EQ(dialogs.Shown(),
              Texts{"Total number of executed instructions is 3.\r\n12.1 seconds elapsed.\r\n"
                    "Real-time duration of the simulation is 20 clock cycles or 5.0 \u00B5s at 4 "
                    "MHz."});
    EXPECT_EQ(State().clockCycles, 20) << "the end stays in view";
    Simulation().Start();
    EXPECT_EQ(State().clockCycles, 4) << "and Start begins afresh";
}

TEST_F(SimulationTest, TimedRatesPauseAfterEachStep) {
    const std::map<SimulationRate, milliseconds> pauses = {
        {SimulationRate::Slow, milliseconds(1500)},
        {SimulationRate::Normal, milliseconds(250)},
        {SimulationRate::Fast, milliseconds(50)}};
    for (const auto& [rate, pause] : pauses) {
        Prepare(rate, {kNop, kNop, kGoto0});
        Simulation().Start();
        ExpectCommands(false, false, true);
        EXPECT_EQ(views.scheduled, nanoseconds(0));
        FireTimer();
        EXPECT_EQ(State().instructionCount, 1);
        EXPECT_EQ(views.scheduled, pause);
        views.Calls();
        clock.now += pause - milliseconds(1);
        Simulation().RunSlice();  // too early
        EXPECT_EQ(views.scheduled, milliseconds(1));
        EXPECT_EQ(State().instructionCount, 1);
        EXPECT_EQ(views.Calls(), Texts{});
        FireTimer();
        EXPECT_EQ(State().instructionCount, 2);
        EXPECT_EQ(views.Calls(), Texts{"refresh 1"});
        Simulation().Stop();
        EXPECT_EQ(dialogs.Shown().size(), 1U) << "Stop does not wait for the pause";
        EXPECT_EQ(workbench->Status(), "Stopped: Stop at 0002: GOTO 0x000");
        EXPECT_EQ(State().instructionCount, 2);
        Simulation().RunSlice();  // the timer fires once more
        EXPECT_EQ(State().instructionCount, 2);
    }
}

TEST_F(SimulationTest, APauseKeepsItsLengthAndMayGetAnother) {
    struct Case {
        SimulationRate before;
        SimulationRate during;
        milliseconds added;
    };
    const Case cases[] = {
        {SimulationRate::Slow, SimulationRate::Normal, milliseconds(250)},
        {SimulationRate::Slow, SimulationRate::Fast, milliseconds(50)},
        {SimulationRate::Normal, SimulationRate::Fast, milliseconds(50)},
        {SimulationRate::Slow, SimulationRate::ExtremelyFast, milliseconds(0)},
        {SimulationRate::Fast, SimulationRate::Slow, milliseconds(0)},
        {SimulationRate::Normal, SimulationRate::Normal, milliseconds(0)},
    };
    for (const Case& c : cases) {
        Prepare(c.before, {kNop, kGoto0});
        Simulation().Start();
        FireTimer();
        Simulation().SetRate(c.during);
        FireTimer();
        if (c.added > milliseconds(0)) {
            EXPECT_EQ(State().instructionCount, 1);
            EXPECT_EQ(views.scheduled, c.added);
            FireTimer();
        }
        EXPECT_GT(State().instructionCount, 1);
    }
}

TEST_F(SimulationTest, StepByStepEndsAPauseAndAnotherRateResumes) {
    Prepare(SimulationRate::Slow, {kNop, kNop, kGoto0});
    Simulation().Start();
    FireTimer();
    Simulation().SetRate(SimulationRate::StepByStep);
    ExpectCommands(false, true, true);
    Simulation().RunSlice();
    EXPECT_EQ(State().instructionCount, 1) << "a late timer does nothing";
    Simulation().Step();
    EXPECT_EQ(State().instructionCount, 2);
    Simulation().SetRate(SimulationRate::Fast);
    ExpectCommands(false, false, true);
    EXPECT_EQ(store.values.at("Simulation Rate"), "4");
    FireTimer();
    EXPECT_EQ(State().instructionCount, 3) << "at once, without a pause";
}

TEST_F(SimulationTest, ASliceAtExtremelyFastIsShortAndTheViewsKeepTheirPace) {
    Prepare(SimulationRate::ExtremelyFast, {kGoto0});
    clock.perRead = milliseconds(1);
    Simulation().Start();
    views.Calls();
    std::int64_t steps = 0;
    const nanoseconds begin = clock.now;
    while (clock.now - begin < milliseconds(1000)) {
        const nanoseconds sliceBegin = clock.now;
        FireTimer();
        EXPECT_LE(clock.now - sliceBegin, milliseconds(9));
        EXPECT_GT(State().instructionCount, steps);
        steps = State().instructionCount;
        EXPECT_EQ(views.scheduled, nanoseconds(0));
    }
    const std::size_t refreshes = views.Calls().size();
    EXPECT_LE(refreshes, 60U);
    EXPECT_GE(refreshes, 50U);

    FireTimer();
    EXPECT_EQ(views.Calls(), Texts{}) << "it is not yet time for the next refresh";
    Simulation().Stop();
    EXPECT_EQ(views.Calls(), Texts{"refresh 1"}) << "the last steps are shown before the message";
    const std::string count = std::to_string(State().instructionCount);
    EXPECT_TRUE(dialogs.Shown().at(0).starts_with("Total number of executed instructions is " +
                                                  count + "."));
    EXPECT_TRUE(State().stopRequested);
}

TEST_F(SimulationTest, AProgramThatEndsStopsTheSimulationAtEveryRate) {
    struct Case {
        std::vector<int> words;
        std::int64_t instructions;
        std::string status;
    };
    const Case cases[] = {{{kNop, kSleep}, 2, "SLEEP at 0001"},
                          {{kNop, 0x0065}, 2, "no instruction, word 0065 at 0001"},
                          {{0x3018, 0x008A, 0x2805}, 3, "end of program memory at 1805"}};
    for (const Case& c : cases) {
        for (int rate = 1; rate <= 5; ++rate) {
            Prepare(static_cast<SimulationRate>(rate), c.words);
            EXPECT_EQ(workbench->Status(), "Idle");
            Simulation().Start();
            for (int i = 0; i < 10 && Simulation().SimulationRunning(); ++i) {
                rate == 1 ? Simulation().Step() : FireTimer();
            }
            EXPECT_FALSE(Simulation().SimulationRunning());
            EXPECT_EQ(State().instructionCount, c.instructions);
            EXPECT_EQ(dialogs.Shown().size(), 1U);
            EXPECT_EQ(workbench->Settings().Rate(), static_cast<SimulationRate>(rate));
            ExpectCommands(true, false, false);
            EXPECT_EQ(workbench->Status(), "Stopped: " + c.status);
        }
    }
}

TEST_F(SimulationTest, ABreakpointSelectsStepByStep) {
    for (int rate = 1; rate <= 5; ++rate) {
        Prepare(static_cast<SimulationRate>(rate), {kNop, kNop, kNop, kSleep});
        workbench->ToggleBreakpoint(dialogs, 2);
        Simulation().Start();
        views.Calls();
        for (int i = 0; i < 10 && State().pc != 2; ++i) {
            rate == 1 ? Simulation().Step() : FireTimer();
        }
        EXPECT_EQ(State().pc, 2);
        EXPECT_EQ(State().instructionCount, 2);
        EXPECT_EQ(store.values.at("Simulation Rate"), "1");
        const Texts calls = views.Calls();
        EXPECT_EQ(Texts(calls.end() - 2, calls.end()), (Texts{"refresh 1", "breakpoint"}))
            << "its line comes into view";
        EXPECT_EQ(workbench->Status(), "Breakpoint at 0002: NOP");
        ExpectCommands(false, true, true);
        Simulation().Step();
        EXPECT_EQ(State().pc, 3);
        EXPECT_EQ(workbench->Status(), "Waiting at 0003: SLEEP");
        EXPECT_EQ(views.Calls(), Texts{"refresh 1"});
        Simulation().SetRate(SimulationRate::ExtremelyFast);
        FireTimer();
        EXPECT_FALSE(Simulation().SimulationRunning());
        dialogs.Shown();
    }
}

TEST_F(SimulationTest, BreakpointsSurviveTheResetOfStartButNoModelChange) {
    Prepare(SimulationRate::ExtremelyFast, {kNop, kNop, kGoto0});
    workbench->ToggleBreakpoint(dialogs, 1);
    Simulation().Start();
    FireTimer();
    EXPECT_EQ(State().pc, 1);
    Simulation().Stop();
    dialogs.models = {5};
    ASSERT_TRUE(workbench->SelectMicrocontroller());
    EXPECT_TRUE(workbench->Breakpoints().Addresses().empty());
    Simulation().SetRate(SimulationRate::ExtremelyFast);
    clock.perRead = milliseconds(1);
    Simulation().Start();  // empty memory: NOPs
    FireTimer();
    EXPECT_GT(State().pc, 1000) << "nothing stops it";
}

// A view that lets events in while it redraws must not start a step within a step.
TEST_F(SimulationTest, CommandsFromWithinARefresh) {
    Prepare(SimulationRate::Fast, {kNop, kNop, kGoto0});
    Simulation().Start();
    views.duringRefresh = [this] {
        Simulation().RunSlice();
        Simulation().Stop();
        EXPECT_TRUE(Simulation().SimulationRunning());
    };
    FireTimer();
    views.duringRefresh = {};
    EXPECT_FALSE(Simulation().SimulationRunning());
    EXPECT_EQ(State().instructionCount, 1);
    EXPECT_EQ(dialogs.Shown().size(), 1U);
}

// A session with clicks and changes by hand, gone through in any order, has at each of its steps
// the state that it had there first.
TEST_F(SimulationTest, EveryStepOfTheHistoryIsWhatItWas) {
    // MOVF PORTB,W; ADDWF 0x0C; INCF 0x0D; GOTO 0
    Prepare(SimulationRate::StepByStep, {0x0806, 0x078C, 0x0A8D, kGoto0});
    Simulation().Start();
    std::vector<core::ProcessorState> states = {State()};
    std::mt19937 random(7);
    for (int step = 1; step <= 300; ++step) {
        Simulation().Step();
        if (random() % 8 == 0) {
            workbench->TogglePin({.port = 1, .bit = static_cast<int>(random() % 8)});
        }
        if (random() % 40 == 0) {
            Simulation().Edit([](core::Processor& processor) {
                StoreValue(processor, {ValueKind::Register, 0x0D}, 3);
            });
        }
        states.push_back(State());
    }
    for (int i = 0; i < 200; ++i) {
        const auto step = static_cast<std::int64_t>(random() % states.size());
        GoToStep(Simulation(), step);
        ASSERT_EQ(State(), states.at(static_cast<std::size_t>(step))) << step;
        if (random() % 2 == 0 && step < 300) {
            Simulation().Step();
            ASSERT_EQ(State(), states.at(static_cast<std::size_t>(step) + 1)) << step;
        }
    }
    GoToStep(Simulation(), 100);
    workbench->TogglePin({.port = 1, .bit = 0});
    EXPECT_EQ(Simulation().History()->Positions().Last(), 100);
    EXPECT_THAT(workbench->Status(), testing::HasSubstr("A new future begins here"));
    workbench->SaveSessionAsTest();
    EXPECT_EQ(dialogs.Shown().back(), "Values have been changed by hand, which a test can not do.");
}

TEST_F(SimulationTest, GoingBackFromARunThatCannotBeWaitedFor) {
    Prepare(SimulationRate::ExtremelyFast, {kNop, kGoto0});
    clock.perRead = milliseconds(5);
    Simulation().Start();
    for (int i = 0; i < 20; ++i) {
        FireTimer();
    }
    const std::int64_t last = State().instructionCount;
    workbench->ToggleBreakpoint(dialogs, 1);
    StepBack(Simulation());
    EXPECT_EQ(State().instructionCount, last - 1);
    EXPECT_EQ(workbench->Settings().Rate(), SimulationRate::StepByStep);
    ExpectCommands(false, true, true);

    views.duringGoing = [this] {
        EXPECT_EQ(workbench->Status(), "Going through the history");
        EXPECT_TRUE(Simulation().RunsByItself());
        GoToStep(Simulation(), 1);  // the first goes on
        const auto before = State();
        workbench->TogglePin({.port = 1, .bit = 0});
        EXPECT_EQ(State(), before);
        Simulation().Stop();
    };
    RunBack(Simulation());
    EXPECT_THAT(workbench->Status(), testing::EndsWith(". Cancelled."));
    EXPECT_EQ(State().instructionCount, last - 1) << "a search that is cancelled goes nowhere";

    views.duringGoing = nullptr;
    Simulation().SetRate(SimulationRate::ExtremelyFast);
    FireTimer();
    EXPECT_EQ(State().pc, 1) << "the breakpoint is still there";
}

}  // namespace
}  // namespace corvane::app
