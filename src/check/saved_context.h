// What an interrupt routine keeps of the registers that it has found, in them and in RAM.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "check/effects.h"

namespace corvane::check {

// The registers that the main program wants to find as they were.
enum class Saved : std::uint8_t { Nothing, W, Status, Fsr, Pclath };

// A byte that came from one of them.
struct SavedByte {
    Saved source = Saved::Nothing;
    bool isSwapped = false;  // its halves are exchanged
    std::uint8_t bits = 0;   // of the source: those that are still what they were

    bool operator==(const SavedByte&) const = default;
};

struct SavedCell {
    int cell = 0;  // the register's address in bank 0, and the bank if it is known
    SavedByte content;

    bool operator==(const SavedCell&) const = default;
};

// At a place of the interrupt routine.
struct Context {
    SavedByte w{Saved::W, false, 0xFF};
    SavedByte status{Saved::Status, false, 0xFF};
    SavedByte fsr{Saved::Fsr, false, 0xFF};
    SavedByte pclath{Saved::Pclath, false, 0xFF};
    std::vector<SavedCell> cells;
    // The address of the instruction that changed it last, 0 when none did.
    std::array<int, 3> changedAt{};        // W, FSR and PCLATH
    std::array<int, 8> statusChangedAt{};  // by the bit of STATUS

    bool operator==(const Context&) const = default;
};

// Behind the word at an address.
Context ContextBehind(const Context& context, int word, int address, const ChipState& state);

// What both have kept.
Context Common(const Context& first, const Context& second);

// What the main program does not find as it was, of the resources of effects.h.
Resources LostResources(const Context& context);

// The address of the instruction that changed a resource.
int ChangedAt(const Context& context, Resources resource);

}  // namespace corvane::check
