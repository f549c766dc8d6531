// The engine and the plain one on the same chip: every command reaches both.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <initializer_list>
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
    EnginePair(const EnginePair&) = delete;
    EnginePair& operator=(const EnginePair&) = delete;

    void SetTimes(int eepromWriteTime, int adConversionTime);
    void Load(std::span<const std::uint16_t> words);
    void Start();

    void Step();
    void PlainStep();
    RunResult RunFast(std::int64_t maxSteps) { return Run(processor_, maxSteps); }

    void Toggle(Pin pin, bool simulationRunning);
    void SetAnalog(int channel, int value);
    void Edit(const std::function<void(ProcessorState&)>& edit);
    void SetBreakpoints(std::span<const int> addresses);

    const plain::Chip& chip() const { return chip_; }
    const ProcessorState& plainState() const { return plainState_; }
    const ProcessorState& fastState() const { return processor_.state; }
    std::int64_t steps() const { return steps_; }  // since Start

    // Model, place, differing fields and the last instructions.
    std::string Report() const;

  private:
    plain::Chip chip_;
    ProcessorState plainState_;
    plain::Engine plainEngine_;
    Processor processor_;
    std::deque<std::string> history_;
    std::int64_t steps_ = 0;
};

// The catalogue's row of this name.
const models::Model& ModelNamed(std::string_view name);

// The words of which these are the decoded texts; of several words the lowest.
std::vector<std::uint16_t> Words(std::initializer_list<std::string_view> texts);

}  // namespace corvane::core
