// Every place that the paths of a program come to, with what is known of the chip there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "check/check.h"
#include "check/chip_state.h"

namespace corvane::check {

constexpr std::uint32_t kNone = 0xFFFFFFFF;

// An address that a path comes to, in one state and in one call.
struct Place {
    ChipState state;
    int address = 0;
    std::uint32_t routine = 0;   // index of the routine that is executed
    std::uint32_t from = kNone;  // the place before it on the path that came first
    std::uint32_t call = kNone;  // behind a CALL: the place of the CALL; from is then the return
};

// A subroutine as it is called in one state: from all callers that call it so it returns alike.
struct Routine {
    std::uint32_t entry = 0;             // its first place
    std::vector<std::uint32_t> callers;  // the places of the CALLs
    std::vector<std::uint32_t> returns;  // the places of its RETURNs, each with another result
};

// A jump into a row of RETLW or GOTO words, or to one word.
struct ComputedJump {
    std::uint32_t place = 0;
    int firstTarget = 0;  // the lowest and the highest address that it is meant to reach
    int lastTarget = 0;
};

// Where a path leaves the program's words.
struct Exit {
    std::uint32_t place = kNone;  // the last place; kNone when already the first word is missing
    int target = 0;               // what it leads to
    bool byInterrupt = false;     // an interrupt leads there
};

struct Paths {
    std::vector<Place> places;
    std::vector<Routine> routines;          // the first is the main program
    std::vector<std::uint32_t> interrupts;  // the interrupt routines, by what PCLATH then holds
    std::vector<std::vector<std::uint32_t>> next;  // by place: inside its routine; of a CALL, the
                                                   // places behind it to which it has returned
    std::vector<std::uint32_t> called;             // by place: the routine that a CALL calls
    std::vector<std::uint32_t> wrongPages;         // GOTO and CALL that leave their label's page
    std::vector<ComputedJump> jumps;
    std::vector<Exit> exits;
    bool hasUnknownJump = false;  // a write to PCL leads nowhere that is known
    bool isComplete = true;
};

// Goes every way from the reset and, where GIE can be set, from the interrupt vector.
Paths FollowPaths(const Program& program);

// The program has a word at this address that is no erased one.
bool IsFilled(const Program& program, int address);

}  // namespace corvane::check
