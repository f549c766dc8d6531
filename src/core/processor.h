// The simulated processor: its state, the model it is, and what execution derives from both.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "core/dispatch.h"
#include "core/processor_state.h"
#include "models/catalogue.h"
#include "models/defaults.h"
#include "models/description.h"

namespace corvane::core {

struct Processor {
    const models::Model* model;
    const models::FamilyTraits* traits;  // of the model
    models::ModelDescription description;
    std::vector<const Peripheral*> peripherals;
    int eepromWriteTime = models::kDefaultEepromWriteTime;            // clock cycles
    int adConversionTime = models::kDefaultAdConversionTime;          // clock cycles
    std::array<std::uint16_t, kProgramCounterRange> programMemory{};  // 0 beyond the model's size
    bool repeatsLoops = true;  // passages of waiting loops in one go: slower without, else the same
    ProcessorState state;
    Dispatch dispatch;  // belongs to the engine: call StateChanged after editing the state by hand
};

}  // namespace corvane::core
