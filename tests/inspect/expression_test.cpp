#include "inspect/expression.h"

#include <gtest/gtest.h>

#include "case_file.h"
#include "core/reset.h"
#include "inspect/report.h"
#include "isa/instruction_set.h"

namespace corvane::inspect {
namespace {

// A chip on which everything that an expression can name has a value of its own.
class Scenery {
  public:
    Scenery() {
        core::StartSimulation(processor_);
        core::ProcessorState& state = processor_.state;
        state.w = 0x5A;
        state.pc = 5;
        state.clockCycles = 84;
        state.instructionCount = 17;
        const std::vector<std::pair<std::size_t, int>> cells = {
            {0x20, 3},    {0x21, 0xFF}, {0x22, 0x34}, {0x23, 0x12}, {0x24, 0b10},
            {0x70, 0x77}, {0x06, 0x81}, {0x86, 0xFE}, {0x03, 0x1C}};
        for (const auto& [cell, value] : cells) {
            state.dataMemory[cell] = static_cast<std::uint8_t>(value);
        }
        state.eepromMemory[5] = 0x42;
        state.hardwareStack[1] = 0x123;
        Wanted wanted;
        wanted.pins[1] = 0x01;
        wanted.counts.set();
        measurements_.Begin(state, wanted);
        state.portValues[1] = 0x01;
        measurements_.CountSteps(15);
        const int returns = isa::InstructionOf(isa::Operation::Return).firstWord;
        for (const int word : {0, returns, returns}) {
            measurements_.AfterStep({5 + word, word, 0, 0, 4}, state);
        }
    }

    Language Words() const { return {names_, {}}; }
    Scene Seen() const { return {{processor_, measurements_}, program_, {}}; }

    std::string ValueOf(const std::string& text) const {
        const auto expression = ParseExpression(text, Words());
        if (!expression) {
            return "column " + std::to_string(expression.error.column) + ": " +
                   expression.error.message;
        }
        const Evaluation value = Evaluate(*expression, Seen().moment);
        return value.error != nullptr ? std::string("error: ") + value.error
                                      : std::to_string(value.value);
    }

  private:
    const models::Model& model_ = ModelNamed("PIC16F877");
    core::Processor processor_ = core::MakeProcessor(model_, DescriptionOf(model_));
    Measurements measurements_;
    project::Program program_ = {
        .labels = {{"LOOP", 5}},
        .constants = {{"COUNT", 0x20, true},
                      {"LED", 3, false},
                      {"RD1", 77, false},
                      {"RE1", 1, false}},
        .variables = {{"total", {basic::BasicType::Word, 0x22}},
                      {"flag", {basic::BasicType::Bit, 0x24, 1}}},
        .files = {"a.asm"},
        .places = std::vector<std::optional<project::Place>>(6, project::Place{0, 60})};
    Names names_{model_, processor_.description, program_};
};

TEST(Expressions, HaveTheValuesThatTheLanguageSays) {
    const Scenery scenery;
    ExpectCases("tests/inspect/expressions.txt",
                [&](const std::string& text) { return scenery.ValueOf(text); });
}

TEST(Expressions, ThatAreTooDeepAreRefused) {
    const Scenery scenery;
    const auto nested = [](int depth) {
        const auto count = static_cast<std::size_t>(depth);
        return std::string(count, '(') + "1" + std::string(count, ')');
    };
    EXPECT_EQ(scenery.ValueOf(nested(50)), "1");
    EXPECT_EQ(scenery.ValueOf(nested(100'000)), "column 51: The expression is nested too deeply.");
    EXPECT_EQ(scenery.ValueOf(std::string(100'000, '~') + "1"),
              "column 51: The expression is nested too deeply.");
    std::string deep = "1";
    for (int i = 0; i < 20; ++i) {
        deep = "1 | 1 ^ 1 & 1 << 1 + 1 * (" + deep + ")";
    }
    EXPECT_NE(scenery.ValueOf(deep).find("too many numbers"), std::string::npos);
}

TEST(Expressions, TellTheirNamesOnce) {
    const Scenery scenery;
    const auto expression = ParseExpression(
        "COUNT == 3 and ram[COUNT] and count > PC - W.1 and high(RB0) == Count and "
        "@LOOP + total.HB and ~COUNT",
        scenery.Words());
    ASSERT_TRUE(expression) << expression.error.message;
    EXPECT_EQ(ValuesText(*expression, scenery.Seen()),
              "COUNT = 3 (0x3), ram[COUNT] = 28 (0x1C), W.1 = 1 (0x1), high(RB0) = 0 (0x0), "
              "@LOOP = 5 (0x5), total.HB = 18 (0x12), PC = 0005 (a.asm:60)");
    EXPECT_EQ(FailureText("never ", *ParseExpression("DEPTH/0", scenery.Words()), "division by 0",
                          scenery.Seen()),
              "expected never DEPTH/0 after 18 steps (21 us): division by 0, DEPTH = -2 "
              "(0xFFFFFFFFFFFFFFFE), PC = 0005 (a.asm:60)");
}

}  // namespace
}  // namespace corvane::inspect
