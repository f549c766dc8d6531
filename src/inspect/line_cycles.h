// How long each source line has taken when it was passed last, found in the history of the run.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "inspect/history.h"
#include "project/program.h"

namespace corvane::inspect {

// A pass lasts from the line's beginning to the next beginning of a line, so that what no line has
// made, such as a routine of the run-time library, belongs to the line that uses it. Used with
// History::LookBack.
class LineCycles final : public Lookout, private Observer {
  public:
    // Of the program's first source. It outlives this. So many of the latest pieces of the history
    // are looked through.
    explicit LineCycles(const project::Program& program, int pieces = 8);

    // Instruction cycles, by line; without the lines that were not passed there to their end.
    const std::map<int, std::int64_t>& Cycles() const { return cycles_; }

    void LookAt(ObservedRun& run) override { run.Add(*this); }
    void Begin(const Moment& moment) override;
    bool IsFoundAt(const Moment& /*moment*/) override { return false; }
    std::optional<std::int64_t> LastTrue(const Moment& moment) override;

  private:
    struct Pass {
        int line;
        std::int64_t beginning;  // in clock cycles
    };

    Look Needs(const Chip& chip) const override;
    bool AfterStep(const Step& step, const Moment& moment) override;
    void End(std::int64_t now);

    std::vector<int> lineOfStart_;  // by address; 0: no line begins there
    int pieces_;
    std::map<int, std::int64_t> cycles_;
    std::map<int, std::int64_t> pieceCycles_;  // of the piece that is played
    std::optional<Pass> pass_;
    std::optional<std::int64_t> firstBeginning_;  // in this piece
    std::optional<std::int64_t> nextBeginning_;   // behind this piece
};

}  // namespace corvane::inspect
