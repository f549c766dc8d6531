// What is known of the chip at a place of a path, and what one instruction does to it.
#pragma once

#include <cstdint>

#include "check/known_byte.h"

namespace corvane::check {

// The registers that every bank has, and their bits. Data sheet: "Special Function Registers".
constexpr int kIndf = 0x00;
constexpr int kPcl = 0x02;
constexpr int kStatus = 0x03;
constexpr int kFsr = 0x04;
constexpr int kPclath = 0x0A;
constexpr int kIntcon = 0x0B;
constexpr int kBankBit = 5;  // of STATUS: RP0, then RP1
constexpr int kBankBits = 3 << kBankBit;
constexpr int kGie = 0x80;         // of INTCON
constexpr int kEnables = 0x78;     // of INTCON: the four that enable one or several interrupts
constexpr int kPageBits = 0x18;    // of PCLATH: they select GOTO's and CALL's page
constexpr int kPclathBits = 0x1F;  // those that PCLATH has
constexpr int kPageWords = 2048;
constexpr int kBlockWords = 256;  // that a jump by writing PCL stays in

struct ChipState {
    KnownByte w;
    KnownByte pclath;
    KnownByte bank;            // RP0 and RP1 at their places in STATUS; no other bit is known
    bool gie = false;          // GIE may be set
    bool byReturn = false;     // only a RETFIE has set it, which may belong to a shared routine
    bool enables = false;      // one of the interrupts may be enabled in INTCON
    bool inInterrupt = false;  // this is the interrupt routine

    // After a RETFIE only where an interrupt is enabled, else wherever the program sets GIE.
    bool CanInterrupt() const { return gie && (enables || !byReturn); }

    bool operator==(const ChipState&) const = default;
};

// Bank 0, page 0 and no interrupts; W is not known.
ChipState StateAfterReset();

// How a path goes on behind an instruction.
enum class Flow : std::uint8_t {
    Next,  // to the word behind it
    Skip,  // to that one or the one behind it
    Goto,
    Call,
    Return,
    Computed,  // by a write to PCL
    Sleep,     // to the word behind it when something wakes the chip
    End,       // nowhere: the word is no instruction
};

struct Step {
    Flow flow = Flow::Next;
    ChipState next;       // behind the instruction
    ChipState skipped;    // of Skip: when the next word is skipped
    bool canGoOn = true;  // of Skip: what is known allows the next word
    bool canSkip = true;  // of Skip: and skipping it
    KnownByte counter;    // of Computed: what is written to PCL
};

// Executes the word at an address. A value of INTCON that is not known sets GIE only in a program
// that has another way to do so.
Step StepOver(int word, int address, const ChipState& state, bool mayRestoreGie);

}  // namespace corvane::check
