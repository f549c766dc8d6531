// The debugger's command line that leads to where a test has failed.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/processor.h"

namespace corvane::scenario {

// What a test does to a chip from outside.
struct Inputs {
    std::array<std::uint8_t, models::kPortCount> pins{};
    std::array<int, models::kAnalogChannels> analogValues{};
    bool operator==(const Inputs&) const = default;
};

// As they are now.
Inputs InputsOf(const core::ProcessorState& state);

class DebugHint {
  public:
    // After this many steps since Start the inputs became other ones.
    void Note(const Inputs& before, const Inputs& after, std::int64_t step);

    // Something happened that the debugger has no command for.
    void GiveUp() { isPossible_ = false; }

    // "(echo goto 12; echo set RA0 1; echo goto 40; cat) | corvane-cli debug PROGRAM": plays the
    // inputs, goes to the step and leaves the rest to the person. The arguments are those of the
    // debugger; without them, or when there is no way or a very long one, the text is empty.
    std::string Text(std::string_view arguments, std::int64_t step) const;

  private:
    void Add(const std::string& command, std::int64_t step);

    std::vector<std::string> commands_;
    std::int64_t step_ = 0;
    bool isPossible_ = true;
};

}  // namespace corvane::scenario
