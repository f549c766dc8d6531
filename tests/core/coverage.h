// Counts what random programs reached, so that a test can insist that they still reach it.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "core/processor_state.h"
#include "models/catalogue.h"

namespace corvane::core {

class Coverage {
  public:
    explicit Coverage(const models::Model& model) : model_(model) {}

    void CountStep(const ProcessorState& before, const ProcessorState& after);
    void CountPinToggle(const ProcessorState& before, const ProcessorState& after);

    // What this model can do and no step did.
    std::vector<std::string> Missing() const;

    // One line for each thing counted.
    std::string Report() const;

  private:
    void Count(const std::string& what, bool happened = true);
    void CountInstruction(const ProcessorState& before, const ProcessorState& after);
    void CountControlFlow(const ProcessorState& before, const ProcessorState& after);
    void CountInterrupt(const ProcessorState& before);
    void CountTimer0(const ProcessorState& before, const ProcessorState& after);
    void CountEeprom(const ProcessorState& before, const ProcessorState& after);
    void CountAdc(const ProcessorState& before, const ProcessorState& after);
    void CountComparators(const ProcessorState& before, const ProcessorState& after);

    const models::Model& model_;
    std::map<std::string, std::int64_t> counts_;
};

}  // namespace corvane::core
