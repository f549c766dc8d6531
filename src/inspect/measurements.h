// What a run has done since Start, as far as the chip itself does not tell.
#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <map>

#include "core/pins.h"
#include "core/processor.h"

namespace corvane::inspect {

// Program addresses.
using Addresses = std::bitset<core::kProgramCounterRange>;

// A step that has been executed.
struct Step {
    int address;  // of its instruction; pc before an interrupt entry
    int word;     // program word, or core::kInterruptEntry
    int status;   // STATUS and FSR before it
    int fsr;
    std::int64_t clocks;  // clock cycles that it took

    bool IsInterruptEntry() const { return word == core::kInterruptEntry; }
};

// In clock cycles; 0 before there is one.
struct PinTimes {
    std::int64_t high = 0;  // the last pulse of which both edges came after Start
    std::int64_t low = 0;
    std::int64_t period = 0;  // between the last two rising edges
    std::int64_t edges = 0;   // changes of the level
    std::int64_t lastRise = 0;
    std::int64_t lastFall = 0;
};

// What somebody wants to know.
struct Wanted {
    std::array<std::uint8_t, core::kPortCount> pins{};  // bits by port
    Addresses counts;
};

class Measurements {
  public:
    // Everything is 0. Call it after Start.
    void Begin(const core::ProcessorState& state, const Wanted& wanted);

    // Somebody has put a call on the stack.
    void CountCall() { ++depth_; }

    void CountSteps(std::int64_t steps) { steps_ += steps; }
    void AfterStep(const Step& step, const core::ProcessorState& state);
    void AfterInput(const core::ProcessorState& state) { MeasurePins(state); }

    std::int64_t Steps() const { return steps_; }
    std::int64_t Depth() const { return depth_; }
    std::int64_t CountOf(int address) const;
    const PinTimes& TimesOf(core::Pin pin) const;

  private:
    void MeasurePins(const core::ProcessorState& state);
    static void MeasureEdge(PinTimes& pin, bool isRising, std::int64_t now);

    std::int64_t steps_ = 0;
    std::int64_t depth_ = 0;              // calls and interrupt entries less returns
    std::map<int, std::int64_t> counts_;  // by address; few, so that a snapshot stays small
    std::array<std::array<PinTimes, 8>, core::kPortCount> pins_{};
    std::array<std::uint8_t, core::kPortCount> levels_{};
    Wanted wanted_;
    bool measuresPins_ = false;
};

}  // namespace corvane::inspect
