// A program in its chip, with the events that are to happen to it, ready to start.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/command_result.h"
#include "cli/commands/run_command.h"
#include "cli/run/stimulus.h"
#include "common/result.h"
#include "core/processor.h"
#include "project/program.h"

namespace corvane::cli {

struct Simulation {
    core::Processor processor;
    project::Program program;
    std::vector<StimulusEvent> events;
    std::vector<std::uint8_t> eeprom;  // empty when it is to be left as it is
};

// Reads the input files and loads the program.
common::Result<Simulation, CommandResult> PrepareSimulation(const RunOptions& options);

// The file of the program and what --time says, as far as it can be told without reading a file.
std::optional<std::string> ProgramUsageError(const RunOptions& options);

// Whichever of --cycles and --time comes first.
RunLimits LimitsOf(const RunOptions& options);

// Resets the chip as Start does, and puts the EEPROM's content there if one was read.
void Start(Simulation& simulation);

}  // namespace corvane::cli
