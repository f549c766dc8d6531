// The engine beside the plain one: random programs and events, the whole state compared.
//
// CORVANE_DIFFERENTIAL_STEPS sets the steps for each model and test, CORVANE_DIFFERENTIAL_SEED
// chooses other programs; with both a longer search can run.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>

#include "core/engine_pair.h"
#include "core/pins.h"
#include "core/random.h"
#include "core/random_program.h"
#include "core/reset.h"
#include "core/state_fields.h"
#include "isa/instruction_set.h"
#include "shipped_files.h"

namespace corvane::core {
namespace {

constexpr std::int64_t kDefaultSteps = 60000;
constexpr int kStepsOfAProgram = 500;
constexpr std::array kStepsOfLoops = {1000, 3000, 3000, 20000};
constexpr std::array kLongestRuns = {2, 10, 50, 200, 2000};
constexpr std::array kLongestRunsOfLoops = {50, 1000, 5000, 30000};
constexpr int kStepsOfRepeatedLoops = 100000;

std::int64_t FromEnvironment(const char* name, std::int64_t otherwise) {
    const char* text = std::getenv(name);
    return text == nullptr ? otherwise : std::atoll(text);
}

class DifferentialTest : public testing::TestWithParam<int> {
  protected:
    void Start(const std::vector<std::uint16_t>& program) {
        static constexpr std::array kTimes = {4, 4, 6, 8, 100, 1000};  // clock cycles
        pair_.SetTimes(random_.Pick(kTimes), random_.Pick(kTimes));
        pair_.Load(program);
        pair_.Start();
    }

    void StartRandomProgram() { Start(RandomProgram(model_, random_)); }
    void StartRandomLoops() { Start(RandomLoops(model_, random_)); }

    // What may happen between two steps.
    void RandomEvents() {
        RandomInputs();
        if (random_.Below(100) == 0) {
            pair_.Edit([this](ProcessorState& state) { EditSomething(state); });
        }
        if (random_.Below(2000) == 0) {
            EditWordNearPc();
        }
        if (random_.Below(200) == 0 || (StandsStill() && random_.Chance(50))) {
            JumpSomewhere();
        }
    }

    void EditWordNearPc() {
        pair_.EditWord((pair_.state().pc + random_.Below(8)) % model_.programWords,
                       static_cast<std::uint16_t>(random_.Below(isa::kWordCount)));
    }

    void RandomInputs() {
        if (random_.Chance(8)) {
            pair_.Toggle(RandomPin(), random_.Chance(85));
        }
        if (traits_.analogChannels > 0 && random_.Chance(8)) {
            const std::array values = {0, traits_.analogFullScale, pair_.state().vrefValue,
                                       random_.Pick(pair_.state().analogValues),
                                       random_.Below(traits_.analogFullScale + 1)};
            pair_.SetAnalog(random_.Below(traits_.analogChannels), random_.Pick(values));
        }
    }

    void JumpSomewhere() {
        const std::array places = {kProgramCounterRange - 1, model_.programWords - 1,
                                   random_.Below(kProgramCounterRange),
                                   random_.Below(model_.programWords)};
        pair_.Edit([pc = random_.Pick(places)](ProcessorState& state) {
            state.pc = pc;
            state.dataMemory[2] = static_cast<std::uint8_t>(pc & 255);
        });
    }

    Pin RandomPin() {
        static constexpr std::array kWithEdges = {Pin{0, 4}, Pin{1, 0}, Pin{1, 4}, Pin{1, 7}};
        if (random_.Chance(50)) {
            return random_.Pick(kWithEdges);
        }
        const int port = random_.Below(traits_.portCount);
        const int pins = traits_.portPins[static_cast<std::size_t>(port)];
        int bit = random_.Below(8);
        while ((pins >> bit & 1) == 0) {
            bit = random_.Below(8);
        }
        return {port, bit};
    }

    // Changes one thing to a value that it could have: what a person edits, and what a test of a
    // rare state would prepare.
    void EditSomething(ProcessorState& state) {
        const plain::Chip& chip = pair_.chip();
        const auto index = [this](int below) {
            return static_cast<std::size_t>(random_.Below(below));
        };
        const auto byte = static_cast<std::uint8_t>(random_.Byte());
        const std::size_t cell = chip.description.addressMap.at(static_cast<std::size_t>(
            random_.Chance(60) ? RandomSpecialRegister(model_.family, random_)
                               : random_.Below(models::kDataMemorySize)));
        const std::vector<std::function<void()>> edits = {
            [&] { state.w = byte; },
            [&] { state.eepromMemory.at(index(model_.eepromBytes)) = byte; },
            [&] { state.stackPointer = 1 + random_.Below(kStackLevels); },
            [&] { state.eeUnlockState = random_.Below(5); },
            [&] {
                state.eeWriteBusy = !state.eeWriteBusy;
                state.eeWriteElapsed = 4 * random_.Below(chip.eepromWriteTime / 4);
                state.eeWriteAddress = random_.Byte();
            },
            [&] { state.prescalerCount = byte; },
            [&] { state.pinInputs.at(index(2)) = byte; },
            [&] {
                const bool converts = traits_.analogUnit == models::AnalogUnit::Converter;
                state.adElapsed = converts ? 4 * random_.Below(chip.adConversionTime / 4) : 0;
            }};
        if (random_.Chance(50)) {
            random_.Pick(edits)();
        } else if (cell != 2) {  // PCL follows pc
            state.dataMemory.at(cell) =
                static_cast<std::uint8_t>(byte & chip.description.writeMask.at(cell));
        }
    }

    void ClearStopRequest() {
        pair_.Edit([](ProcessorState& state) { state.stopRequested = false; });
    }

    // At a SLEEP or a word that is no instruction.
    bool StandsStill() const {
        const int word = pair_.state().lastInstruction;
        return word >= 0 && (isa::Classify(word) == isa::Operation::Sleep ||
                             isa::Classify(word) == isa::Operation::Unrecognized);
    }

    // A breakpoint or two, often where the program is about to come by.
    void SetRandomBreakpoints() {
        breakpoints_.clear();
        for (int i = random_.Below(4); i > 0; --i) {
            const int ahead = (pair_.state().pc + random_.Below(16)) % kProgramCounterRange;
            breakpoints_.push_back(random_.Chance(50) ? ahead
                                                      : random_.Below(kProgramCounterRange));
        }
        pair_.SetBreakpoints(breakpoints_);
    }

    // A run of up to so many steps on both.
    void CompareRun(int wanted) {
        int done = 0;
        bool breakpointReached = false;
        while (done < wanted && !breakpointReached && !pair_.state().stopRequested) {
            pair_.PlainStep();
            ++done;
            breakpointReached = std::find(breakpoints_.begin(), breakpoints_.end(),
                                          pair_.state().pc) != breakpoints_.end();
        }
        const RunResult result = pair_.RunFast(wanted);
        steps_ += done;
        ASSERT_TRUE(pair_.AreEqual()) << "after step " << steps_ << ", " << done << " of " << wanted
                                      << " in a run, " << Report();
        ASSERT_EQ(result.steps, done) << Report();
        ASSERT_EQ(result.breakpointReached, breakpointReached) << Report();
        breaks_ += breakpointReached ? 1 : 0;
        if (pair_.state().stopRequested) {
            ++stops_;
            ClearStopRequest();
        }
    }

    std::string Report() const { return "seed " + std::to_string(seed_) + ", " + pair_.Report(); }

    const models::Model& model_ = models::kModelCatalogue.at(static_cast<std::size_t>(GetParam()));
    const models::FamilyTraits& traits_ = models::TraitsOf(model_.family);
    std::int64_t maxSteps_ = FromEnvironment("CORVANE_DIFFERENTIAL_STEPS", kDefaultSteps);
    std::int64_t seed_ = FromEnvironment("CORVANE_DIFFERENTIAL_SEED", 1);
    Random random_{static_cast<std::uint32_t>(seed_ * models::kModelCount + GetParam())};
    EnginePair pair_{model_};
    std::vector<int> breakpoints_;
    std::int64_t steps_ = 0;
    int stops_ = 0;
    int breaks_ = 0;
};

TEST_P(DifferentialTest, EveryStepGivesTheSameState) {
    ASSERT_TRUE(pair_.AreEqual()) << "after the reset, " << Report();
    StartRandomProgram();
    for (std::int64_t step = 1; step <= maxSteps_; ++step) {
        ASSERT_TRUE(pair_.AreEqual()) << "before step " << step << ", " << Report();
        pair_.Step();
        ASSERT_TRUE(pair_.AreEqual()) << "after step " << step << ", " << Report();
        if (pair_.steps() >= kStepsOfAProgram) {
            StartRandomProgram();
        } else {
            RandomEvents();
        }
        if (pair_.state().stopRequested && random_.Chance(10)) {
            ClearStopRequest();
        }
    }
}

TEST_P(DifferentialTest, RunGivesTheStateOfItsSteps) {
    StartRandomProgram();
    while (steps_ < maxSteps_) {
        if (random_.Chance(50)) {
            SetRandomBreakpoints();
        }
        ASSERT_NO_FATAL_FAILURE(CompareRun(1 + random_.Below(random_.Pick(kLongestRuns))));
        if (pair_.steps() >= kStepsOfAProgram) {
            StartRandomProgram();
        } else {
            RandomEvents();
        }
    }
    EXPECT_GT(stops_, 0);
    EXPECT_GT(breaks_, 0);
}

TEST_P(DifferentialTest, LongRunsOfLoopsGiveTheStateOfTheirSteps) {
    while (steps_ < 5 * maxSteps_) {
        StartRandomLoops();
        pair_.SetRepeatsLoops(random_.Chance(75));
        const int stepsOfProgram = random_.Pick(kStepsOfLoops);
        while (pair_.steps() < stepsOfProgram) {
            if (random_.Chance(10)) {
                SetRandomBreakpoints();
            }
            ASSERT_NO_FATAL_FAILURE(
                CompareRun(1 + random_.Below(random_.Pick(kLongestRunsOfLoops))));
            RandomEvents();
            if (random_.Chance(3)) {
                EditWordNearPc();
            }
        }
    }
}

// The engine with and without doing loops in one go, which is fast enough for many more steps.
TEST_P(DifferentialTest, DoingLoopsInOneGoChangesNothing) {
    std::array<Processor, 2> both = {MakeProcessor(model_, DescriptionOf(model_)),
                                     MakeProcessor(model_, DescriptionOf(model_))};
    Processor& plain = both[0];
    Processor& fast = both[1];
    plain.repeatsLoops = false;
    while (steps_ < 500 * maxSteps_) {
        const std::vector<std::uint16_t> program = RandomLoops(model_, random_);
        for (Processor& processor : both) {
            FillProgramMemory(processor, program);
            StartSimulation(processor);
        }
        plain.adConversionTime = fast.adConversionTime = 4 + random_.Below(1000);
        plain.eepromWriteTime = fast.eepromWriteTime = 4 + random_.Below(1000);
        while (plain.state.instructionCount < kStepsOfRepeatedLoops) {
            const int wanted = 1 + random_.Below(random_.Pick(kLongestRunsOfLoops));
            const Pin pin = RandomPin();
            const bool toggles = random_.Chance(20);
            for (Processor& processor : both) {
                if (toggles) {
                    TogglePin(processor, pin, true);
                }
                processor.state.stopRequested = false;
                steps_ += core::Run(processor, wanted).steps;
            }
            ASSERT_TRUE(plain.state == fast.state) << model_.name << ", seed " << seed_ << ", step "
                                                   << plain.state.instructionCount << ":\n"
                                                   << Differences(plain.state, fast.state);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Models, DifferentialTest, testing::Range(0, models::kModelCount),
    [](const testing::TestParamInfo<int>& row) {
        return std::string(models::kModelCatalogue.at(static_cast<std::size_t>(row.param)).name);
    });

}  // namespace
}  // namespace corvane::core
