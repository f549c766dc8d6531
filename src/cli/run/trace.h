// The trace of a run: one line after each step.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/output.h"
#include "core/processor_state.h"
#include "inspect/observed_run.h"
#include "project/program.h"

namespace corvane::cli {

// Lines go through a buffer of its own, because a run may write millions of them. Errors are
// complete texts.
class Trace final : public inspect::Observer {
  public:
    // With a program each line ends with " ; FILE:LINE" where the instruction has one.
    explicit Trace(const project::Program* program) : program_(program) {}

    std::optional<std::string> Open(const std::string& file);

    inspect::Look Needs(const inspect::Chip& /*chip*/) const override {
        return {.everyStep = true};
    }

    // "1 0001 55 18 8 MOVLW 0x55": the step's number from 1, pc, w, STATUS, clockCycles and
    // lastInstruction after the step.
    bool AfterStep(const inspect::Step& step, const inspect::Moment& moment) override;

    // The first failure to write a line.
    const std::optional<std::string>& Error() const { return error_; }

    std::optional<std::string> Close();

  private:
    void AddPlace(const inspect::Step& step);
    std::string_view InstructionText(const core::ProcessorState& state);
    std::optional<std::string> Flush();

    static constexpr std::size_t kBufferSize = 1U << 16U;

    const project::Program* program_;
    Output output_;
    std::optional<std::string> error_;
    std::vector<char> buffer_;
    std::size_t used_ = 0;
    std::vector<std::string> textOfWord_;  // by program word, filled as words are executed
    std::string otherText_;                // of what is no program word
};

}  // namespace corvane::cli
