// What a run must show: the options --until, --expect, --never and --strict.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "common/result.h"
#include "inspect/clock.h"
#include "inspect/faults.h"
#include "inspect/names.h"
#include "inspect/observed_run.h"
#include "inspect/report.h"
#include "project/program.h"

namespace corvane::cli {

struct ExpectationOptions {
    std::string until;  // empty without
    std::vector<std::string> expected;
    std::vector<std::string> never;
    inspect::FaultSet faults;
};

class Expectations {
  public:
    // The error is complete: the first expression that is none.
    static common::Result<Expectations> Read(const ExpectationOptions& options,
                                             const inspect::Language& language);

    // Has the run look at what is expected. Before the run begins; the finder outlives it.
    void LookAt(inspect::ObservedRun& run, inspect::FaultFinder& faults) const;

    // What has failed after a run that ended so, one message a line without the file's name.
    std::vector<std::string> Failures(const inspect::Pause& end, const inspect::FaultFinder& faults,
                                      const inspect::Scene& scene) const;

  private:
    std::vector<inspect::Condition> conditions_;  // --never in their order, then --until
    bool hasUntil_ = false;
    std::vector<inspect::Expression> expected_;
    inspect::FaultSet faults_;
};

}  // namespace corvane::cli
