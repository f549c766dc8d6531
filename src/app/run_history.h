// The history of a simulation in the application: what can be gone back to, and what expressions
// mean in it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"
#include "core/execution.h"
#include "inspect/expression.h"
#include "inspect/faults.h"
#include "inspect/history.h"
#include "inspect/names.h"
#include "project/program.h"

namespace corvane::app {

class RunHistory {
  public:
    // Of a simulation that has just been started; the processor outlives it.
    RunHistory(core::Processor& processor, project::Program program, inspect::Clock clock);
    RunHistory(const RunHistory&) = delete;
    RunHistory& operator=(const RunHistory&) = delete;

    inspect::History& Positions() { return positions_; }
    const inspect::History& Positions() const { return positions_; }
    const inspect::FaultFinder& Faults() const { return faults_; }

    // Executes steps as core::Run does, with what was done in them before.
    core::RunResult Run(std::int64_t steps);

    // The error is a sentence for the person who has written the text.
    common::Result<inspect::Expression> Read(std::string_view text) const;

  private:
    core::Processor& processor_;
    project::Program program_;
    inspect::Names names_;
    inspect::Language language_;
    inspect::FaultFinder faults_;
    inspect::History positions_;
};

}  // namespace corvane::app
