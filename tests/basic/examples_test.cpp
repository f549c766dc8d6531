// The BASIC programs of examples/ do in the simulated chip what their comments promise.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "basic/chip.h"
#include "basic/editor_form.h"
#include "cli/run_loop.h"
#include "cli/stimulus.h"
#include "common/text.h"
#include "core/execution.h"

namespace corvane::basic {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPortB = 1;

// A started example with its stimulus file. Steps are counted from the start.
class Example {
  public:
    Example(const std::string& name, std::string_view modelName)
        : source_(ReadSourceFile("examples/" + name + ".bas")), chip_(modelName, source_) {
        EXPECT_NE(std::string::npos, source_.find("'Model: " + std::string(modelName) + "\n"));
        EXPECT_TRUE(chip_.Warnings().empty());
        EXPECT_EQ(common::WithCrLf(source_),
                  RewriteText(source_, EditorKeywords(chip_.Processor().description)))
            << "as the editor writes it";
        if (fs::exists(CORVANE_SOURCE_DIR "/examples/" + name + ".stim")) {
            ReadStimulus(name + ".stim");
        }
    }

    Chip& RunToStep(std::int64_t step) {
        std::vector<cli::StimulusEvent> due;
        for (const cli::StimulusEvent& event : events_) {
            if (event.step >= steps_ && event.step < step) {
                due.push_back(event);
                due.back().step -= steps_;
            }
        }
        EXPECT_EQ(std::nullopt,
                  cli::RunToEnd(chip_.Processor(), {step - steps_, std::nullopt}, due, nullptr));
        steps_ = step;
        return chip_;
    }

    int PortB() { return chip_.Processor().state.portValues.at(kPortB); }

  private:
    void ReadStimulus(const std::string& file) {
        EXPECT_NE(std::string::npos, source_.find("'Stimulus: " + file + "\n"));
        const auto events =
            cli::ReadStimulus(file, ReadSourceFile("examples/" + file), *chip_.Processor().model);
        ASSERT_TRUE(events) << events.error;
        events_ = *events;
    }

    std::string source_;
    Chip chip_;
    std::vector<cli::StimulusEvent> events_;
    std::int64_t steps_ = 0;
};

TEST(Examples, AllAreTested) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(CORVANE_SOURCE_DIR "/examples")) {
        if (entry.path().extension() == ".bas") {
            names.insert(entry.path().stem().string());
        }
    }
    EXPECT_EQ((std::set<std::string>{"analog_threshold", "blinking_led", "button_counter",
                                     "eeprom_log", "square_root_table"}),
              names);
}

TEST(Examples, BlinkingLedIsHalfASecondOnAndHalfASecondOff) {
    Example example("blinking_led", "PIC16F84");
    core::Processor& processor = example.RunToStep(10).Processor();
    std::vector<std::int64_t> changes;
    for (int level = 1; changes.size() < 4; level = 1 - level) {
        while (example.PortB() != level && processor.state.clockCycles < 20'000'000) {
            core::Run(processor, 1);
        }
        changes.push_back(processor.state.clockCycles);
    }
    for (std::size_t i = 1; i < changes.size(); ++i) {
        const std::int64_t milliseconds = (changes[i] - changes[i - 1]) / 4000;
        EXPECT_EQ(500, milliseconds);
    }
}

TEST(Examples, ButtonCounterCountsPressesButNotBouncesAndNoise) {
    Example example("button_counter", "PIC16F84");
    const std::vector<std::array<int, 2>> countsAtSteps = {{900, 0},    {90000, 1},  {190000, 1},
                                                           {240000, 2}, {390000, 2}, {500000, 3}};
    for (const auto& [step, count] : countsAtSteps) {
        EXPECT_EQ(count, example.RunToStep(step).Value("count")) << step;
        EXPECT_EQ(count, example.PortB()) << step;
    }
}

// A round takes about 6,870 steps: two of three cycles of the waits are steps of their own.
TEST(Examples, EepromLogKeepsTheInputsAndShowsTheLargest) {
    Example example("eeprom_log", "PIC16F84");
    const core::ProcessorState& state = example.RunToStep(200000).Processor().state;
    const std::vector<std::uint8_t> log(state.eepromMemory.begin(),
                                        state.eepromMemory.begin() + 16);
    EXPECT_EQ((std::vector<std::uint8_t>{3, 3, 3, 3, 3, 3, 3, 3, 19, 19, 19, 19, 19, 19, 19, 16}),
              log);
    EXPECT_EQ(19, example.PortB());
}

TEST(Examples, AnalogThresholdHasAGap) {
    Example example("analog_threshold", "PIC16F877");
    const std::vector<std::array<int, 3>> levelsAtSteps = {{1900, 550, 0}, {3900, 600, 1},
                                                           {5900, 500, 1}, {7900, 499, 0},
                                                           {9900, 599, 0}, {12000, 1023, 1}};
    for (const auto& [step, level, isOn] : levelsAtSteps) {
        EXPECT_EQ(level, example.RunToStep(step).Value("level")) << step;
        EXPECT_EQ(isOn, example.PortB() & 1) << step;
    }
}

TEST(Examples, SquareRootTableHoldsTenfoldRoots) {
    Example example("square_root_table", "PIC16F84");
    const core::ProcessorState& state = example.RunToStep(100000).Processor().state;
    for (int n = 0; n < 64; ++n) {
        const int root = state.eepromMemory.at(static_cast<std::size_t>(n));
        EXPECT_LE(root * root, 100 * n) << n;
        EXPECT_GT((root + 1) * (root + 1), 100 * n) << n;
    }
}

}  // namespace
}  // namespace corvane::basic
