// corvane-cli run: simulates a program.
#pragma once

#include <string>
#include <vector>

#include "cli/command_result.h"
#include "cli/run/expectations.h"
#include "cli/run/recordings.h"
#include "cli/run/run_loop.h"
#include "inspect/clock.h"
#include "models/defaults.h"
#include "project/gpasm_build.h"
#include "project/hex_file.h"
#include "project/model_files.h"
#include "project/program_kind.h"

namespace corvane::cli {

constexpr int kMaxBreakpoints = 10;

struct RunOptions {
    project::ModelChoice model;
    std::string program;                       // .hex, .asm or .bas, or a pipe
    std::optional<project::ProgramKind> kind;  // as the person says; else the name tells
    project::AssemblerChoice assembler;        // of an .asm file
    bool withoutSource = false;                // what lies beside a .hex file is not looked at
    RunLimits limits;
    std::vector<int> breakpoints;  // program addresses, kMaxBreakpoints at most
    std::string time{};            // a duration after which the run ends; empty without
    ExpectationOptions expectations{};
    RecordingOptions recordings{};
    std::string stimulusFile{};  // files are empty when not wanted
    std::string stateFile{};
    std::string eepromFile{};                                 // its content before the first step
    std::string saveEepromFile{};                             // its content at the end
    bool quiet = false;                                       // without the statistics message
    float clockFrequency = models::kDefaultClockFrequency;    // MHz
    inspect::Clock clock{};                                   // the same, exactly
    int eepromWriteTime = models::kDefaultEepromWriteTime;    // clock cycles
    int adConversionTime = models::kDefaultAdConversionTime;  // clock cycles
};

// Writes all results also when an expectation fails or Ctrl-C ends the run.
CommandResult RunProgram(const RunOptions& options);

}  // namespace corvane::cli
