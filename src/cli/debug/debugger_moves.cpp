// The debugger's commands that go to another position.
#include <algorithm>
#include <charconv>
#include <limits>

#include "cli/debug/debugger.h"
#include "cli/debug/source_places.h"
#include "cli/interrupt.h"
#include "inspect/report.h"

namespace corvane::cli {

namespace {

std::optional<std::int64_t> ReadNumber(std::string_view text) {
    std::int64_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    const bool isNumber = error == std::errc() && stop == end && number >= 0;
    return isNumber ? std::optional(number) : std::nullopt;
}

}  // namespace

std::string Debugger::EndText(inspect::PlayEnd end) const {
    switch (end) {
        case inspect::PlayEnd::Ended:
            return "stop: end of the program\n";
        case inspect::PlayEnd::Limit:
            return "stop: limit\n";
        case inspect::PlayEnd::Cancelled:
            return "stop: interrupted\n";
        default:
            return "";
    }
}

Debugger::Reply Debugger::MoveTo(std::int64_t position) {
    return Reply::Success(EndText(history_.GoTo(position)));
}

Debugger::Reply Debugger::StepBy(Arguments arguments, Direction direction) {
    const std::optional<std::int64_t> count = arguments.empty() ? 1 : ReadNumber(arguments);
    if (!count) {
        return Reply::Failure("'" + std::string(arguments) + "' is no number of steps");
    }
    const std::int64_t present = history_.Position();
    if (direction == Direction::Back) {
        const bool isBeforeStart = *count > present;
        const Reply reply = MoveTo(isBeforeStart ? 0 : present - *count);
        return isBeforeStart && reply->empty() ? Reply::Success("stop: Start\n") : reply;
    }
    constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
    return MoveTo(present + std::min(*count, kMost - present));
}

Debugger::Reply Debugger::GoTo(Arguments arguments) {
    const std::optional<std::int64_t> position = ReadNumber(arguments);
    return position ? MoveTo(*position)
                    : Reply::Failure("'" + std::string(arguments) + "' is no step number");
}

Debugger::Reply Debugger::Run(Arguments arguments, Direction direction) {
    if (arguments.empty()) {
        return Search({}, direction);
    }
    constexpr std::string_view kUntil = "until ";
    if (!arguments.starts_with(kUntil)) {
        return Reply::Failure("run and run-back take until EXPR, or nothing");
    }
    const ExpressionResult expression = Read(arguments.substr(kUntil.size()));
    return expression
               ? Search({.expression = *expression, .text = "until " + expression->text}, direction)
               : Reply::Failure(expression.error);
}

Debugger::Reply Debugger::Over(Arguments /*arguments*/, Direction direction) {
    const std::int64_t depth = history_.Now().measurements.Depth();
    return Search({.expression = *Read("DEPTH <= " + std::to_string(depth)), .text = ""},
                  direction);
}

Debugger::Reply Debugger::Out(Arguments /*arguments*/, Direction direction) {
    const std::int64_t depth = history_.Now().measurements.Depth();
    if (depth <= 0) {
        return Reply::Failure("no call and no interrupt is under way");
    }
    return Search({.expression = *Read("DEPTH < " + std::to_string(depth)), .text = ""}, direction);
}

Debugger::Reply Debugger::Line(Arguments /*arguments*/, Direction direction) {
    inspect::Goal goal = {.addresses = LineStarts(program_), .text = ""};
    return goal.addresses.empty() ? Reply::Failure("this program has no source")
                                  : Search(goal, direction);
}

Debugger::Reply Debugger::Search(const inspect::Goal& goal, Direction direction) {
    inspect::StopLookout lookout(stops_, goal, faults_);
    switch (inspect::Search(history_, lookout, direction)) {
        case inspect::SearchEnd::Found:
            return Reply::Success(FoundText(lookout, goal));
        case inspect::SearchEnd::Start:
            return Reply::Success("stop: Start\n");
        case inspect::SearchEnd::Ended:
            return Reply::Success(EndText(inspect::PlayEnd::Ended));
        case inspect::SearchEnd::Limit:
            return Reply::Success(EndText(inspect::PlayEnd::Limit));
        case inspect::SearchEnd::Cancelled:
            break;
    }
    return Reply::Success(EndText(inspect::PlayEnd::Cancelled));
}

std::string Debugger::FoundText(const inspect::StopLookout& lookout,
                                const inspect::Goal& goal) const {
    std::string text;
    for (const inspect::Stop* stop : lookout.Stops()) {
        text += "stop: " + std::to_string(stop->number) + " " + stop->text + "\n";
    }
    if (lookout.IsFault()) {
        text += "stop: " + inspect::FaultText(*faults_.Found(), Scene()) + "\n";
    }
    if (lookout.IsGoal() && !goal.text.empty()) {
        text += "stop: " + goal.text + "\n";
    }
    return text +
           (simulation_.processor.state.stopRequested ? EndText(inspect::PlayEnd::Ended) : "");
}

Debugger::Reply Debugger::LastChange(Arguments arguments) {
    const ExpressionResult name = ReadName(arguments);
    if (!name) {
        return Reply::Failure(name.error);
    }
    inspect::ChangeLookout lookout(*name);
    const std::optional<std::int64_t> found = history_.FindPrevious(lookout);
    if (IsInterrupted()) {
        return Reply::Success(EndText(inspect::PlayEnd::Cancelled));
    }
    return found ? MoveTo(*found) : Reply::Success("not changed since Start\n");
}

}  // namespace corvane::cli
