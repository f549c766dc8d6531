// The engine and the plain one on the same chip: every command reaches both.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/execution.h"
#include "core/pins.h"
#include "core/plain_engine.h"
#include "core/processor.h"

namespace corvane::core {

class EnginePair {
  public:
    explicit EnginePair(const models::Model& model);

    void SetTimes(int eepromWriteTime, int adConversionTime);
    void Load(std::span<const std::uint16_t> words);
    void Start();

    void Step();
    void PlainStep();
    RunResult RunFast(std::int64_t maxSteps) { return Run(processor_, maxSteps); }

    void Toggle(Pin pin, bool simulationRunning);
    void SetAnalog(int channel, int value);
    void Edit(const std::function<void(ProcessorState&)>& edit);
    void EditWord(int address, std::uint16_t word);
    void SetRepeatsLoops(bool repeats) { processor_.repeatsLoops = repeats; }
    void SetBreakpoints(std::span<const int> addresses);

    const plain::Chip& chip() const { return chip_; }
    const ProcessorState& state() const { return plainState_; }
    std::int64_t steps() const { return steps_; }  // since Start
    bool AreEqual() const { return plainState_ == processor_.state; }

    // Model, place, differing fields and the last instructions.
    std::string Report() const;

  private:
    plain::Chip chip_;
    ProcessorState plainState_;
    Processor processor_;
    std::deque<std::string> history_;
    std::int64_t steps_ = 0;
};

// The fields that differ, a line for each.
std::string Differences(const ProcessorState& plain, const ProcessorState& fast);

// The words of which these are the decoded texts; of several words the lowest.
std::vector<std::uint16_t> Words(const std::vector<std::string>& texts);

}  // namespace corvane::core
