// Any bytes are an expression: parsing must end, an error must stand inside of the text, and what
// was parsed has the same value every time and at most as many numbers at once as there is room
// for.
#include "inspect/expression.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/reset.h"
#include "inspect/look.h"
#include "require.h"

namespace {

using namespace corvane;

// A chip with names of every kind. Its description is made here: a fuzz target reads no files.
struct Scenery {
    const models::Model& model = models::kModelCatalogue[models::kDefaultModel];
    core::Processor processor = core::MakeProcessor(model, Description());
    inspect::Measurements measurements;
    project::Program program = {
        .labels = {{"LOOP", 5}},
        .constants = {{"COUNT", 0x0C, true}, {"LED", 3, false}},
        .variables = {{"total", {basic::BasicType::Word, 0x0D}},
                      {"flag", {basic::BasicType::Bit, 0x0F, 1}}},
    };
    inspect::Names names{model, processor.description, program};

    Scenery() {
        core::StartSimulation(processor);
        inspect::Wanted wanted;
        wanted.counts.set();
        measurements.Begin(processor.state, wanted);
    }

    static models::ModelDescription Description() {
        models::ModelDescription description;
        description.gprList.push_back({"00Ch", 0x0C});
        description.sfrList = {{"003h  STATUS", 3, 0x18}, {"006h  PORTB", 6, 0}};
        description.asmSymbolLines = {{"Z EQU 2", 1}, {"RB0 EQU 0", 2}};
        return description;
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Scenery scenery;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto expression = inspect::ParseExpression(text, {scenery.names, {}});
    if (!expression) {
        Require(expression.error.column >= 1 && !expression.error.message.empty());
        Require(expression.error.column <= static_cast<int>(size) + 1);
        return 0;
    }
    const inspect::Moment moment = {scenery.processor, scenery.measurements};
    const inspect::Evaluation value = inspect::Evaluate(*expression, moment);
    Require(value.value == inspect::Evaluate(*expression, moment).value);
    for (const inspect::NamedPart& name : expression->names) {
        Require(!name.text.empty() && name.begin < name.end && name.end <= expression->code.size());
        (void)inspect::Evaluate(*expression, name, moment);
    }
    inspect::LookAtChanges(expression->quantities,
                           {scenery.model, scenery.processor.description, {}});
    return 0;
}
