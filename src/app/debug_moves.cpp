#include "app/debug_moves.h"

#include <vector>

#include "common/number_text.h"
#include "disasm/decoder.h"

namespace corvane::app {

namespace {

using inspect::SearchEnd;

constexpr const char* kAtStart = "This is the start.";

std::string RemarkOn(SearchEnd end) {
    return end == SearchEnd::Start ? kAtStart : "";
}

// " by MOVWF 0x0C at 0004"
std::string ByLastStep(inspect::History& positions) {
    const int word = positions.Now().processor.state.lastInstruction;
    const std::optional<int> address = positions.AddressOfLastStep();
    return address && word >= 0
               ? " by " + disasm::DecodeInstruction(word) + " at " + common::Hex4(*address)
               : "";
}

bool CanGo(const SimulationControl& simulation, Direction direction) {
    return direction == Direction::Back ? simulation.CanGoBack()
                                        : simulation.CanStep() && simulation.History() != nullptr;
}

// Searches with the stops of the debugger.
template <typename MoveFunction>
void GoWithStops(SimulationControl& simulation, MoveFunction move, Direction direction) {
    if (!CanGo(simulation, direction)) {
        return;
    }
    simulation.Go([&move, direction](RunHistory& history) {
        const std::vector<inspect::Stop> stops;
        return RemarkOn(move(history.Positions(), {stops, history.Faults()}, direction));
    });
}

SearchEnd SearchForStop(inspect::History& history, const inspect::StopsToMeet& stops,
                        Direction direction) {
    const inspect::Goal goal;
    inspect::StopLookout lookout(stops.stops, goal, stops.faults);
    return inspect::Search(history, lookout, direction);
}

}  // namespace

void StepBack(SimulationControl& simulation) {
    if (simulation.CanGoBack()) {
        GoToStep(simulation, simulation.History()->Positions().Position() - 1);
    }
}

void RunBack(SimulationControl& simulation) {
    GoWithStops(simulation, SearchForStop, Direction::Back);
}

void StepOver(SimulationControl& simulation, Direction direction) {
    GoWithStops(simulation, inspect::StepOver, direction);
}

bool CanStepOut(const SimulationControl& simulation, const core::Processor& processor) {
    return CanGo(simulation, Direction::Forward) && inspect::HasCaller(processor.state);
}

void StepOut(SimulationControl& simulation, Direction direction) {
    GoWithStops(simulation, inspect::StepOut, direction);
}

void RunBackToLastChange(SimulationControl& simulation, const core::Processor& processor,
                         const ValuePlace& place) {
    const std::optional<std::string> text = ExpressionOf(place);
    if (!simulation.CanGoBack() || !text) {
        return;
    }
    simulation.Go([&](RunHistory& history) -> std::string {
        const auto expression = history.Read(*text);
        if (!expression) {
            return expression.error;
        }
        inspect::ChangeLookout lookout(*expression);
        inspect::History& positions = history.Positions();
        const std::optional<std::int64_t> found = positions.FindPrevious(lookout);
        if (!found) {
            return NameOf(processor, place) + " has not changed since Start.";
        }
        positions.GoTo(*found);
        return NameOf(processor, place) + " has been changed" + ByLastStep(positions) + ".";
    });
}

std::optional<std::string> ExpressionOf(const ValuePlace& place) {
    const std::string index = "[" + std::to_string(place.index) + "]";
    const std::string bit = place.bit ? " & (1 << " + std::to_string(*place.bit) + ")" : "";
    switch (place.kind) {
        case ValueKind::Pc:
            return "PC" + bit;
        case ValueKind::W:
            return "W" + bit;
        case ValueKind::Register:
            return place.index == models::kPrescalerAddress ? std::nullopt
                                                            : std::optional("ram" + index + bit);
        case ValueKind::Eeprom:
            return "eeprom" + index + bit;
        case ValueKind::StackLevel:
            break;
    }
    return "stack" + index + bit;
}

void GoToStep(SimulationControl& simulation, std::int64_t step) {
    simulation.Go([step](RunHistory& history) {
        history.Positions().GoTo(step);
        return history.Positions().Position() == 0 ? std::string(kAtStart) : std::string();
    });
}

}  // namespace corvane::app
