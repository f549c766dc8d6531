// Going back must be exact: every position of a history is compared with a plain run that only ever
// goes forward and keeps what it was at each step.
#include "inspect/history.h"

#include <gtest/gtest.h>

#include "core/random_program.h"
#include "core/reset.h"
#include "inspect/line_cycles.h"
#include "inspect/stops.h"
#include "shipped_files.h"

namespace corvane::inspect {
namespace {

constexpr std::int64_t kSteps = 2000;
// The first makes snapshots rarer with their distance, the second keeps them all.
constexpr HistoryDensity kDense = {.spacing = 8, .mostSnapshots = 230};
constexpr HistoryDensity kSparse = {.spacing = 64, .mostSnapshots = 230};

using Events = std::vector<StimulusEvent>;

StimulusEvent RandomEvent(std::int64_t step, const models::Model& model, core::Random& random) {
    const int channels = models::TraitsOf(model.family).analogChannels;
    if (channels > 0 && random.Chance(20)) {
        return {step, StimulusAction::Analog, {}, random.Below(channels), random.Below(500)};
    }
    const core::Pin pin = {random.Below(2), random.Below(5)};
    return random.Chance(50) ? StimulusEvent{step, StimulusAction::Toggle, pin, 0, 0}
                             : StimulusEvent{step, StimulusAction::Set, pin, 0, random.Below(2)};
}

Events RandomEvents(const models::Model& model, core::Random& random) {
    Events events;
    for (std::int64_t step = random.Below(60); step < kSteps; step += random.Below(120)) {
        events.push_back(RandomEvent(step, model, random));
    }
    return events;
}

std::string RandomName(core::Random& random) {
    return random.Pick(std::vector<std::string>{
        "W", "PORTB", "RB0", "RA1", "STATUS.Z", "FSR", "INTCON", "stack[3]", "eeprom[2]", "DEPTH",
        "ram[0x20]", "edges(RB0)", "period(RA1)", "count(5)", "TMR0", "PCLATH"});
}

// A run that only goes forward, one step after the other.
struct PlainRun {
    std::vector<core::ProcessorState> states{};  // by position
    std::vector<std::int64_t> values{};
    std::vector<bool> changes{};  // whether the value changed at the position
};

PlainRun RunPlainly(core::Processor processor, const Events& events, const Expression& expression) {
    ObservedRun run(processor);
    run.Want(expression.quantities);
    run.Begin();
    PlainRun plain;
    std::int64_t value = Evaluate(expression, run.Now()).value;
    const auto hasChanged = [&] {
        const std::int64_t before = std::exchange(value, Evaluate(expression, run.Now()).value);
        return value != before;
    };
    auto event = events.begin();
    while (true) {
        bool changed = hasChanged();
        for (; event != events.end() && event->step == run.Steps(); ++event) {
            Apply(*event, processor);
            run.InputChanged();
            changed = hasChanged() || changed;
        }
        plain.states.push_back(processor.state);
        plain.values.push_back(value);
        plain.changes.push_back(changed);
        if (processor.state.stopRequested || run.Steps() == kSteps) {
            return plain;
        }
        run.Advance(1);
    }
}

std::optional<std::int64_t> LastChange(const PlainRun& plain, std::int64_t before) {
    for (std::int64_t position = before - 1; position > 0; --position) {
        if (plain.changes[static_cast<std::size_t>(position)]) {
            return position;
        }
    }
    return std::nullopt;
}

// A random program and what is looked at in it.
struct Scene {
    const models::Model& model;
    core::Processor processor;
    Names names;
    Expression expression;
    FaultFinder faults;

    explicit Scene(core::Random& random)
        : model(random.Pick(models::kModelCatalogue)),
          processor(core::MakeProcessor(model, DescriptionOf(model))),
          names(model, processor.description, {}),
          expression(*ParseExpression(RandomName(random), {names, {}})),
          faults(random.Chance(30) ? FaultSet(31) : FaultSet(), names, processor.description) {
        core::FillProgramMemory(processor, random.Chance(70) ? core::RandomProgram(model, random)
                                                             : core::RandomLoops(model, random));
        core::StartSimulation(processor);
    }
};

void ExpectAt(const History& history, const PlainRun& plain, const Expression& expression) {
    const auto position = static_cast<std::size_t>(history.Position());
    ASSERT_EQ(history.Now().processor.state, plain.states[position]) << position;
    ASSERT_EQ(Evaluate(expression, history.Now()).value, plain.values[position])
        << expression.text << " at " << position;
}

// Goes to random positions; returns how many last changes were found.
int WanderAbout(History& history, const PlainRun& plain, const Expression& expression,
                core::Random& random) {
    const int last = static_cast<int>(plain.states.size()) - 1;
    int found = 0;
    for (int i = 0; i < 28 && !testing::Test::HasFatalFailure(); ++i) {
        const int position = random.Chance(30) && history.Position() > 0
                                 ? static_cast<int>(history.Position()) - 1
                                 : random.Below(last + 1);
        EXPECT_EQ(history.GoTo(position), PlayEnd::Reached);
        EXPECT_EQ(history.Position(), position);
        ExpectAt(history, plain, expression);
        if (i % 3 != 0) {
            continue;
        }
        ChangeLookout lookout(expression);
        const std::optional<std::int64_t> change = history.FindPrevious(lookout);
        EXPECT_EQ(change, LastChange(plain, position)) << expression.text << " at " << position;
        found += change ? 1 : 0;
        ExpectAt(history, plain, expression);
        const std::optional<int> address = history.AddressOfLastStep();
        if (address) {
            EXPECT_EQ(*address, plain.states[static_cast<std::size_t>(position - 1)].pc);
        }
        ExpectAt(history, plain, expression);
    }
    EXPECT_LE(history.SnapshotCount(), kDense.mostSnapshots);
    return found;
}

TEST(AHistory, GivesEveryPositionBackAsItWas) {
    core::Random random(14);
    int found = 0;
    int programs = 0;
    for (; programs < 200 && !HasFatalFailure(); ++programs) {
        Scene scene(random);
        const core::Processor started = scene.processor;
        Events scripted = RandomEvents(scene.model, random);
        PlainRun plain = RunPlainly(started, scripted, scene.expression);
        History history(scene.processor, scene.faults, {.steps = kSteps, .clockCycles = {}},
                        random.Chance(20) ? kDense : kSparse);
        history.Begin(scripted);
        if (random.Chance(50)) {
            history.Want(scene.expression.quantities);
        }
        const PlayEnd end = history.GoTo(kSteps + 1);
        ASSERT_EQ(end, plain.states.size() == kSteps + 1 && !plain.states.back().stopRequested
                           ? PlayEnd::Limit
                           : PlayEnd::Ended);
        ASSERT_EQ(history.Last() + 1, static_cast<std::int64_t>(plain.states.size()));
        history.Want(scene.expression.quantities);
        found += WanderAbout(history, plain, scene.expression, random);

        // Another future from the present position.
        const StimulusEvent made = RandomEvent(history.Position(), scene.model, random);
        const bool isPast = history.Position() < history.Last();
        const History::EventEffect effect = history.Do(made);
        if (effect == History::EventEffect::Nothing) {
            continue;
        }
        ASSERT_EQ(effect == History::EventEffect::NewFuture, isPast);
        ASSERT_EQ(history.Last(), history.Position());
        scripted.insert(std::upper_bound(scripted.begin(), scripted.end(), made,
                                         [](const StimulusEvent& a, const StimulusEvent& b) {
                                             return a.step < b.step;
                                         }),
                        made);
        plain = RunPlainly(started, scripted, scene.expression);
        history.GoTo(kSteps);
        found += WanderAbout(history, plain, scene.expression, random);
    }
    EXPECT_EQ(programs, 200);
    EXPECT_GT(found, 1000);
}

Expression Parse(const std::string& text, const Names& names) {
    const auto expression = ParseExpression(text, {names, {}});
    EXPECT_TRUE(expression) << text;
    return expression ? *expression.value : Expression{};
}

// Breakpoints and watches of all kinds, some with a condition.
std::vector<Stop> RandomStops(const Scene& scene, core::Random& random) {
    std::vector<Stop> stops;
    for (int number = 1; number <= 3; ++number) {
        Stop stop = {.number = number, .text = ""};
        if (random.Chance(30)) {
            stop.addresses = {random.Below(200), random.Below(200)};
        } else {
            const std::vector<std::string> names = {"PORTB", "FSR", "ram[0x20]", "STATUS.Z"};
            stop.watched = Parse(random.Pick(names), scene.names);
            stop.kind = static_cast<WatchKind>(random.Below(3));
        }
        if (random.Chance(40)) {
            stop.condition = random.Chance(50) ? Parse("STEPS % 3 == 0", scene.names)
                                               : Parse("FSR / (STEPS % 5)", scene.names);
        }
        stops.push_back(std::move(stop));
    }
    return stops;
}

TEST(AHistory, FindsTheStopsOfTheWayThereOnTheWayBack) {
    core::Random random(15);
    std::size_t stopsFound = 0;
    for (int i = 0; i < 60 && !HasFatalFailure(); ++i) {
        Scene scene(random);
        const std::vector<Stop> stops = RandomStops(scene, random);
        const Goal goal = {.expression = random.Chance(50)
                                             ? std::optional(Parse("DEPTH < 1", scene.names))
                                             : std::nullopt,
                           .addresses = {random.Below(100)}};
        History history(scene.processor, scene.faults, {.steps = 600, .clockCycles = {}}, kSparse);
        history.Begin(RandomEvents(scene.model, random));
        history.Want({{QuantityKind::Depth}});
        std::vector<std::int64_t> found;
        StopLookout lookout(stops, goal, scene.faults);
        while (history.FindNext(lookout) == PlayEnd::Found) {
            ASSERT_TRUE(lookout.IsGoal() || lookout.IsFault() || !lookout.Stops().empty());
            found.push_back(history.Position());
        }
        stopsFound += found.size();
        for (int j = 0; j < 10; ++j) {
            history.GoTo(1 + random.Below(static_cast<int>(history.Last()) + 1));
            const std::int64_t present = history.Position();
            const auto next = std::lower_bound(found.begin(), found.end(), present);
            // A goal that is an expression may hold at Start too.
            const std::int64_t expected = next == found.begin() ? 0 : *std::prev(next);
            ASSERT_EQ(history.FindPrevious(lookout).value_or(0), expected) << present;
            ASSERT_EQ(history.Position(), present);
        }
    }
    EXPECT_GT(stopsFound, 1000U);
}

TEST(AHistory, IsCancelledOnTheWayAndStaysSmall) {
    core::Random random(7);
    Scene scene(random);
    core::FillProgramMemory(scene.processor, std::vector<std::uint16_t>{0x2800});  // GOTO 0
    core::StartSimulation(scene.processor);
    constexpr std::int64_t kFar = 1'000'000'000;
    constexpr std::size_t kMostBytes = std::size_t{16} << 20;
    History history(scene.processor, scene.faults);
    history.Begin({});
    history.LookForFaults({});
    EXPECT_EQ(history.GoTo(kFar), PlayEnd::Reached);
    EXPECT_LT(history.Bytes(), kMostBytes);
    EXPECT_GT(history.SnapshotCount(), 100U);
    int asked = 0;
    history.CancelIf([&asked] { return ++asked > 3; });
    const Expression w = Parse("W", scene.names);
    ChangeLookout lookout(w);
    EXPECT_EQ(history.FindPrevious(lookout), std::nullopt);
    EXPECT_EQ(history.Position(), kFar);
    EXPECT_EQ(history.GoTo(2 * kFar), PlayEnd::Cancelled);
    EXPECT_LT(history.Position(), 2 * kFar);
}

// Line 1 calls a routine that no line has made; lines 2 and 3 lead back to it.
TEST(AHistory, TellsTheCyclesOfTheLastPassOfALine) {
    const std::array<std::uint16_t, 6> words = {0x2004, 0x0000, 0x2800, 0x0000, 0x0000, 0x0008};
    project::Program program{.image = loader::ProgramOf(words, 1024), .files = {"a.bas"}};
    program.places = {project::Place{0, 1}, project::Place{0, 2}, project::Place{0, 3}};
    const models::Model& model = ModelNamed("PIC16F84");
    core::Processor processor = core::MakeProcessor(model, DescriptionOf(model));
    core::FillProgramMemory(processor, words);
    core::StartSimulation(processor);
    const Names names(*processor.model, processor.description, program);
    FaultFinder faults({}, names, processor.description);
    History history(processor, faults, {}, {.spacing = 8, .mostSnapshots = 230});
    history.Begin({});
    using Cycles = std::map<int, std::int64_t>;
    struct Case {
        std::int64_t position;
        int pieces;
        Cycles cycles;
    };
    const std::vector<Case> cases = {
        {0, 2, {}},
        {1, 2, {}},        // within line 1
        {3, 2, {{1, 5}}},  // with what it has called
        {4, 2, {{1, 5}, {2, 1}}},
        {97, 1, {}},  // after the snapshot at 96 comes the rest of line 1
        {100, 1, {{2, 1}, {3, 2}}},
        {100, 2, {{1, 5}, {2, 1}, {3, 2}}},  // it began before that
        {96, 1, {{1, 5}, {2, 1}, {3, 2}}},
    };
    for (const Case& row : cases) {
        history.GoTo(row.position);
        const core::ProcessorState before = processor.state;
        LineCycles found(program, row.pieces);
        history.LookBack(found);
        EXPECT_EQ(found.Cycles(), row.cycles) << row.position << " in " << row.pieces;
        EXPECT_EQ(processor.state, before) << row.position;
    }
}

}  // namespace
}  // namespace corvane::inspect
