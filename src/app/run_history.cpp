#include "app/run_history.h"

#include <algorithm>
#include <utility>

namespace corvane::app {

RunHistory::RunHistory(core::Processor& processor, project::Program program, inspect::Clock clock)
    : processor_(processor),
      program_(std::move(program)),
      names_(*processor.model, processor.description, program_),
      language_{names_, clock},
      faults_({}, names_, processor.description),
      positions_(processor, faults_) {
    positions_.Begin({});
}

core::RunResult RunHistory::Run(std::int64_t steps) {
    const core::RunResult result =
        core::Run(processor_, std::min(steps, positions_.StepsUntilTold()));
    positions_.Ran(result.steps);
    return result;
}

common::Result<inspect::Expression> RunHistory::Read(std::string_view text) const {
    using Reading = common::Result<inspect::Expression>;
    auto expression = inspect::ParseExpression(text, language_);
    return expression ? Reading::Success(*std::move(expression.value))
                      : Reading::Failure("Column " + std::to_string(expression.error.column) +
                                         ": " + expression.error.message);
}

}  // namespace corvane::app
