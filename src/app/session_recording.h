// What a person has done at the pins since Start, and the firmware test that does it again.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/pins.h"
#include "core/processor.h"
#include "models/catalogue.h"

namespace corvane::app {

struct PinEvent {
    std::int64_t clocks;             // of the session at which it happened
    std::optional<core::Pin> pin{};  // that was toggled; else an analog value was set
    int channel = 0;
    int value = 0;
};

struct SessionEnd {
    std::int64_t clocks;
    std::array<std::uint8_t, 5> portValues;
    bool isAsleep;
};

struct SessionRecording {
    std::vector<std::uint8_t> eeprom;  // at Start, as many bytes as the model has
    std::vector<PinEvent> events;      // in their order
    bool hasChangedValues = false;     // by hand, which no test can do
    std::optional<SessionEnd> end;     // nothing while the session lasts
};

// Of a simulation that has just been started.
SessionRecording BeginRecording(const core::Processor& processor);
// The session as if it ended now.
SessionEnd EndOf(const core::Processor& processor);

struct TestedProgram {
    std::string path;  // from the test file's folder
    const models::Model& model;
    std::string clockFrequency;  // MHz
    int eepromWriteTime;         // clock cycles
    int adConversionTime;        // clock cycles
};

// A test file with one test that plays the events and expects the pins to be as at the end.
std::string SessionAsTest(const SessionRecording& recording, const SessionEnd& end,
                          const TestedProgram& program);

}  // namespace corvane::app
