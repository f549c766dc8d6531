// The debugger behind its commands: one line in, its answer out.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/commands/run_command.h"
#include "cli/run/simulation.h"
#include "common/result.h"
#include "inspect/expression.h"
#include "inspect/faults.h"
#include "inspect/history.h"
#include "inspect/moves.h"
#include "inspect/names.h"
#include "inspect/stops.h"

namespace corvane::cli {

class Debugger {
  public:
    // Both outlive the debugger; the simulation has just been started.
    Debugger(Simulation& simulation, const RunOptions& options);

    // The answer to a command: lines, the last of which tells the position; "error: .." when it is
    // refused. Nothing for an empty line.
    std::string Answer(std::string_view command);

    bool HasQuit() const { return hasQuit_; }

  private:
    // What stands before the position line, or why the command is refused.
    using Reply = common::Result<std::string>;
    using Arguments = std::string_view;
    using ExpressionResult = common::Result<inspect::Expression>;
    using Direction = inspect::Direction;
    struct Move {
        std::string_view name;
        Reply (Debugger::*answer)(Arguments arguments, Direction direction);
        Direction direction;
        bool takesArguments;
    };
    struct Command {
        std::string_view name;
        Reply (Debugger::*answer)(Arguments arguments);
        bool takesArguments;
    };

    Reply StepBy(Arguments arguments, Direction direction);
    Reply Run(Arguments arguments, Direction direction);
    Reply Over(Arguments arguments, Direction direction);
    Reply Out(Arguments arguments, Direction direction);
    Reply Line(Arguments arguments, Direction direction);
    Reply GoTo(Arguments arguments);
    Reply LastChange(Arguments arguments);
    Reply Break(Arguments arguments);
    Reply Watch(Arguments arguments);
    Reply Fault(Arguments arguments);
    Reply Stops(Arguments arguments);
    Reply Delete(Arguments arguments);
    Reply Print(Arguments arguments);
    Reply State(Arguments arguments);
    Reply List(Arguments arguments);
    Reply Where(Arguments arguments);
    Reply Input(Arguments arguments, const char* action);
    Reply Set(Arguments arguments) { return Input(arguments, "set"); }
    Reply Toggle(Arguments arguments) { return Input(arguments, "toggle"); }
    Reply Analog(Arguments arguments) { return Input(arguments, "analog"); }
    Reply History(Arguments arguments);

    Reply AnswerTo(std::string_view name, Arguments arguments);
    Reply MoveTo(std::int64_t position);
    Reply Search(const inspect::Goal& goal, Direction direction);
    std::string EndText(inspect::PlayEnd end) const;
    std::string FoundText(const inspect::StopLookout& lookout, const inspect::Goal& goal) const;
    std::string PositionLine();
    ExpressionResult Read(std::string_view text);
    ExpressionResult ReadName(std::string_view text);
    inspect::Stop& AddStop(inspect::Stop stop);
    inspect::Scene Scene() const { return {history_.Now(), program_, options_.clock}; }

    Simulation& simulation_;
    const project::Program& program_;
    const RunOptions& options_;
    inspect::Names names_;
    inspect::Language language_;
    inspect::FaultFinder faults_;
    inspect::History history_;
    std::vector<inspect::Stop> stops_;
    int lastNumber_ = 0;
    bool hasQuit_ = false;
};

}  // namespace corvane::cli
