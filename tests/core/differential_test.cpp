// The engine beside the plain one: random programs and events, the whole state compared.
//
// CORVANE_DIFFERENTIAL_STEPS sets the steps for each model and test, CORVANE_DIFFERENTIAL_SEED
// chooses other programs; with both a longer search can run.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>

#include "core/coverage.h"
#include "core/engine_pair.h"
#include "core/random.h"
#include "core/random_events.h"
#include "core/random_program.h"
#include "isa/instruction_set.h"

namespace corvane::core {
namespace {

constexpr std::int64_t kDefaultSteps = 60000;
constexpr int kStepsOfAProgram = 500;
constexpr std::array kLongestRuns = {2, 10, 50, 200, 2000};

std::int64_t FromEnvironment(const char* name, std::int64_t otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : std::atoll(text);
}

class DifferentialTest : public testing::TestWithParam<int> {
  protected:
    void StartRandomProgram() {
        static constexpr std::array kTimes = {4, 4, 6, 8, 100};  // clock cycles
        pair_.SetTimes(random_.Pick(kTimes), random_.Pick(kTimes));
        pair_.Load(RandomProgram(model_, random_));
        pair_.Start();
    }

    // What may happen between two steps.
    void RandomEvents() {
        if (pair_.steps() >= kStepsOfAProgram) {
            StartRandomProgram();
            return;
        }
        if (random_.Chance(8)) {
            const PinToggle toggle = RandomPinToggle(model_, random_);
            const ProcessorState before = pair_.plainState();
            pair_.Toggle(toggle.pin, toggle.simulationRunning);
            coverage_.CountPinToggle(before, pair_.plainState());
        }
        if (model_.family != models::ModelFamily::Pic16F8x && random_.Chance(8)) {
            const AnalogInput input = RandomAnalogInput(model_, pair_.plainState(), random_);
            pair_.SetAnalog(input.channel, input.value);
        }
        if (random_.Below(400) == 0) {
            pair_.Edit([&](ProcessorState& state) { RandomEdit(pair_.chip(), state, random_); });
        }
        if (random_.Below(200) == 0 || (StandsStill() && random_.Chance(50))) {
            pair_.Edit([&](ProcessorState& state) { RandomJump(model_, state, random_); });
        }
    }

    void ClearStopRequest() {
        pair_.Edit([](ProcessorState& state) { state.stopRequested = false; });
    }

    // At a SLEEP or a word that is no instruction.
    bool StandsStill() const {
        const int word = pair_.plainState().lastInstruction;
        return word >= 0 && (isa::Classify(word) == isa::Operation::Sleep ||
                             isa::Classify(word) == isa::Operation::Unrecognized);
    }

    // A breakpoint or two, often where the program is about to come by.
    std::vector<int> RandomBreakpoints() {
        std::vector<int> breakpoints;
        for (int i = random_.Below(4); i > 0; --i) {
            const int ahead = (pair_.plainState().pc + random_.Below(16)) % kProgramCounterRange;
            breakpoints.push_back(random_.Chance(50) ? ahead : random_.Below(kProgramCounterRange));
        }
        return breakpoints;
    }

    bool Equal() const { return pair_.plainState() == pair_.fastState(); }
    std::string Report() const { return "seed " + std::to_string(seed_) + ", " + pair_.Report(); }

    const models::Model& model_ = models::kModelCatalogue.at(static_cast<std::size_t>(GetParam()));
    std::int64_t maxSteps_ = FromEnvironment("CORVANE_DIFFERENTIAL_STEPS", kDefaultSteps);
    std::int64_t seed_ = FromEnvironment("CORVANE_DIFFERENTIAL_SEED", 1);
    Random random_{static_cast<std::uint32_t>(seed_ * models::kModelCount + GetParam())};
    EnginePair pair_{model_};
    Coverage coverage_{model_};
};

TEST_P(DifferentialTest, EveryStepGivesTheSameState) {
    ASSERT_TRUE(Equal()) << "after the reset, " << Report();
    StartRandomProgram();
    for (std::int64_t step = 1; step <= maxSteps_; ++step) {
        ASSERT_TRUE(Equal()) << "before step " << step << ", " << Report();
        const ProcessorState before = pair_.plainState();
        pair_.Step();
        ASSERT_TRUE(Equal()) << "after step " << step << ", " << Report();
        coverage_.CountStep(before, pair_.plainState());
        RandomEvents();
        if (pair_.plainState().stopRequested && random_.Chance(10)) {
            ClearStopRequest();
        }
    }
    for (const std::string& what : coverage_.Missing()) {
        ADD_FAILURE() << "the programs never reached: " << what << "\n" << coverage_.Report();
    }
}

TEST_P(DifferentialTest, RunGivesTheStateOfItsSteps) {
    StartRandomProgram();
    std::vector<int> breakpoints;
    std::int64_t steps = 0;
    int stops = 0;
    int breaks = 0;
    while (steps < maxSteps_) {
        if (random_.Chance(50)) {
            breakpoints = RandomBreakpoints();
            pair_.SetBreakpoints(breakpoints);
        }
        const int wanted = 1 + random_.Below(random_.Pick(kLongestRuns));
        int done = 0;
        bool breakpointReached = false;
        while (done < wanted && !breakpointReached && !pair_.plainState().stopRequested) {
            pair_.PlainStep();
            ++done;
            breakpointReached = std::find(breakpoints.begin(), breakpoints.end(),
                                          pair_.plainState().pc) != breakpoints.end();
        }
        const RunResult result = pair_.RunFast(wanted);
        steps += done;
        ASSERT_TRUE(Equal()) << "after step " << steps << ", " << done << " of " << wanted
                             << " in a run, " << Report();
        ASSERT_EQ(result.steps, done) << Report();
        ASSERT_EQ(result.breakpointReached, breakpointReached) << Report();
        breaks += breakpointReached ? 1 : 0;
        if (pair_.plainState().stopRequested) {
            ++stops;
            ClearStopRequest();
        }
        RandomEvents();
    }
    EXPECT_GT(stops, 0);
    EXPECT_GT(breaks, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Models, DifferentialTest, testing::Range(0, models::kModelCount),
    [](const testing::TestParamInfo<int>& row) {
        return std::string(models::kModelCatalogue.at(static_cast<std::size_t>(row.param)).name);
    });

}  // namespace
}  // namespace corvane::core
