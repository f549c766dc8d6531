// Which instructions a run has executed, and which way its skips have gone.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "inspect/observed_run.h"
#include "project/program.h"

namespace corvane::inspect {

class Coverage final : public Observer {
  public:
    Coverage();

    Look Needs(const Chip& chip) const override;
    bool AfterStep(const Step& step, const Moment& moment) override;

    // A record for each source file in lcov's format; lines end with LF. Each line counts as often
    // as its first word was executed.
    std::string LcovText(const project::Program& program) const;

  private:
    std::string LcovRecord(const project::Program& program, int file) const;

    std::vector<std::int64_t> executed_;  // by address
    std::vector<std::int64_t> skipped_;   // of skip instructions
};

}  // namespace corvane::inspect
