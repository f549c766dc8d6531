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

namespace corvane::cli {

// Lines go through a buffer of its own, because a run may write millions of them. Errors are
// complete texts.
class Trace {
  public:
    std::optional<std::string> Open(const std::string& file);

    // "1 0001 55 18 8 MOVLW 0x55": the step's number from 1, pc, w, STATUS, clockCycles and
    // lastInstruction after the step.
    std::optional<std::string> AddLine(std::int64_t step, const core::ProcessorState& state);

    std::optional<std::string> Close();

  private:
    std::string_view InstructionText(const core::ProcessorState& state);
    std::optional<std::string> Flush();

    static constexpr std::size_t kBufferSize = 1U << 16U;

    Output output_;
    std::vector<char> buffer_;
    std::size_t used_ = 0;
    std::vector<std::string> textOfWord_;  // by program word, filled as words are executed
    std::string otherText_;                // of what is no program word
};

}  // namespace corvane::cli
