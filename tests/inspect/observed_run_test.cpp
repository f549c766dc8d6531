// A run must be the same however much of it is looked at: what an observed run tells, with the
// engine running unseen between the steps that matter, is compared with what looking at every step
// tells.
#include "inspect/observed_run.h"

#include <gtest/gtest.h>

#include "core/random_program.h"
#include "core/reset.h"
#include "shipped_files.h"

namespace corvane::inspect {
namespace {

class EveryStep final : public Observer {
  public:
    Look Needs(const Chip& /*chip*/) const override { return {.everyStep = true}; }
    bool AfterStep(const Step& /*step*/, const Moment& /*moment*/) override { return false; }
};

// One of two runs of the same program.
struct Chips {
    core::Processor processor;
    ObservedRun run;

    Chips(const models::Model& model, const std::vector<std::uint16_t>& words)
        : processor(core::MakeProcessor(model, DescriptionOf(model))), run(processor) {
        core::FillProgramMemory(processor, words);
        core::StartSimulation(processor);
    }
};

std::string RandomName(const models::Model& model, core::Random& random) {
    const std::string place = std::to_string(random.Below(0x200));
    const std::string pin = std::string("R") + "AB"[random.Below(2)] + "01234"[random.Below(5)];
    switch (random.Below(9)) {
        case 0:
            return "eeprom[" + std::to_string(random.Below(model.eepromBytes)) + "]";
        case 1:
            return "DEPTH";
        case 2:
            return "stack[" + std::to_string(1 + random.Below(8)) + "]";
        case 3:
            return "count(" + std::to_string(random.Below(model.programWords)) + ")";
        case 4:
            return pin;
        case 5:
            return random.Pick(std::vector<std::string>{"high(", "low(", "period(", "edges("}) +
                   pin + ")";
        case 6:
            return random.Pick(std::vector<std::string>{
                "PORTB", "TRISB", "FSR", "PCLATH", "OPTION_REG", "EECON1", "INTCON", "STATUS"});
        default:
            return "ram[" + place + "]";
    }
}

std::vector<Condition> RandomConditions(const Language& language, core::Random& random) {
    std::vector<Condition> conditions;
    for (int i = 1 + random.Below(3); i > 0; --i) {
        const std::string name = RandomName(language.names.Model(), random);
        const std::string text =
            random.Chance(30) ? name : name + " == " + std::to_string(random.Byte());
        const auto expression = ParseExpression(text, language);
        EXPECT_TRUE(expression) << text;
        conditions.push_back({*expression, random.Chance(80)});
    }
    return conditions;
}

void ExpectSame(const Chips& a, const Chips& b, const std::vector<Condition>& conditions) {
    ASSERT_EQ(a.processor.state, b.processor.state);
    ASSERT_EQ(a.run.Steps(), b.run.Steps());
    for (const Condition& condition : conditions) {
        const Evaluation one = Evaluate(condition.expression, a.run.Now());
        ASSERT_EQ(one.value, Evaluate(condition.expression, b.run.Now()).value)
            << condition.expression.text;
    }
}

TEST(ObservedRuns, DoNotDependOnHowMuchIsLookedAt) {
    constexpr int kPrograms = 150;
    core::Random random(13);
    std::array<int, 5> reasons{};
    for (int i = 0; i < kPrograms; ++i) {
        const models::Model& model = random.Pick(models::kModelCatalogue);
        const std::vector<std::uint16_t> words = core::RandomProgram(model, random);
        Chips some(model, words);
        Chips all(model, words);
        const Names names(model, some.processor.description, {});
        const Language language = {names, {}};
        EveryStep everyStep;
        all.run.Add(everyStep);
        const std::vector<Condition> conditions = RandomConditions(language, random);
        const std::vector<int> breakpoints = {random.Below(model.programWords),
                                              random.Below(model.programWords),
                                              random.Below(model.programWords)};
        const core::Pin held = {1, random.Below(8)};
        const bool holds = random.Chance(30);
        for (Chips* chips : {&some, &all}) {
            for (const Condition& condition : conditions) {
                chips->run.Want(condition.expression.quantities);
            }
            chips->run.SetBreakpoints(breakpoints);
            chips->run.Begin();
            if (holds) {
                chips->run.Hold(held, true);
            }
            chips->run.SetConditions(conditions);
        }
        for (int slice = 0; slice < 60; ++slice) {
            const std::int64_t steps = 1 + random.Below(200);
            const auto clocks =
                random.Chance(50)
                    ? std::nullopt
                    : std::optional(all.processor.state.clockCycles + random.Below(900));
            const Pause a = some.run.Advance(steps, clocks);
            const Pause b = all.run.Advance(steps, clocks);
            ASSERT_EQ(a.reason, b.reason);
            ASSERT_EQ(a.index, b.index);
            ASSERT_NO_FATAL_FAILURE(ExpectSame(some, all, conditions))
                << conditions[0].expression.text;
            ++reasons[static_cast<std::size_t>(a.reason)];
            const core::Pin pin = {1, random.Below(8)};
            for (Chips* chips : {&some, &all}) {
                chips->processor.state.stopRequested = false;
                core::TogglePin(chips->processor, pin, true);
                chips->run.InputChanged();
            }
        }
    }
    EXPECT_GT(reasons[static_cast<std::size_t>(PauseReason::Condition)], 300);
    EXPECT_GT(reasons[static_cast<std::size_t>(PauseReason::Limit)], 300);
    EXPECT_GT(reasons[static_cast<std::size_t>(PauseReason::Breakpoint)], 10);
}

}  // namespace
}  // namespace corvane::inspect
