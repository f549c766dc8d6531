// Loops that only count or wait, as delays and polls do. One passage of such a loop is watched
// while it is executed; whenever the loop comes by again as it was then, as many passages as
// nothing else can happen in are done in one go. The state, its counters included, is that of
// executing each step.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/peripheral.h"
#include "core/processor_state.h"

namespace corvane::core {

struct DecodedWord;
struct Processor;

// A passage, from behind the GOTO that closes the loop to the same place, and what must be as it
// was for the next one to do the same.
struct Passage {
    struct Input {
        std::size_t place;  // a byte of the state: loops.cpp
        std::uint8_t value;

        bool operator==(const Input&) const = default;
    };
    struct Counter {
        std::size_t cell;
        int change;     // in one passage
        bool isTested;  // it may not begin at 0

        bool operator==(const Counter&) const = default;
    };

    int w = 0;
    int status = 0;
    bool usesStack = false;
    int stackPointer = 0;
    std::array<std::uint16_t, kStackLevels + 1> hardwareStack{};
    std::vector<Input> inputs{};
    std::vector<Counter> counters{};
    PeripheralMask readOwners = 0;  // of the cells it reads that change with time
    std::int64_t steps = 0;
    std::int64_t clockCycles = 0;

    bool operator==(const Passage&) const = default;
};

// How often a GOTO comes by before somebody looks at its loop for the first time.
constexpr int kFirstPatience = 8;

// What is known of the loop that a GOTO closes.
struct Loop {
    std::ptrdiff_t closing;  // the GOTO's place in the decoded program
    std::vector<Passage> passages{};
    PeripheralMask readOwners = 0;  // of all passages
    std::size_t oldest = 0;         // the passage that the next one found replaces
    int patience = kFirstPatience;  // how often the GOTO comes by before the next look
    int looksToWatch = 0;           // looks before a watch that is not necessary
    int looksBetween = 1;
};

// To be called when the program changes, or the marks on it.
void ForgetLoops(Processor& processor);

// Within the GOTO that closes a loop and has run out of patience, behind its jump: does passages of
// the loop in one go, as a part of the slice, or asks in dispatch.loopToWatch for a watch.
void LookAtLoop(Processor& processor, DecodedWord* closing);

// Behind that GOTO, between two slices, when nothing is due: executes a passage to learn what it
// does. Returns the steps that were done, 0 to the run's last; whatever follows a slice is still to
// be done for them.
std::int64_t WatchLoop(Processor& processor, DecodedWord* closing);

}  // namespace corvane::core
