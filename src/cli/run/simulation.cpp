#include "cli/run/simulation.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "cli/diagnostics.h"
#include "cli/program_input.h"
#include "cli/run/eeprom_file.h"
#include "cli/source_input.h"
#include "common/text_file.h"
#include "core/reset.h"
#include "project/loaded_program.h"

namespace corvane::cli {

namespace {

common::Result<std::vector<StimulusEvent>> ReadEvents(const RunOptions& options,
                                                      const models::Model& model) {
    if (options.stimulusFile.empty()) {
        return common::Result<std::vector<StimulusEvent>>::Success({});
    }
    const common::Result<std::string> text = common::ReadTextFileOrPipe(options.stimulusFile);
    if (!text) {
        return common::Result<std::vector<StimulusEvent>>::Failure(
            ErrorText(options.stimulusFile, text.error));
    }
    return ReadStimulus(options.stimulusFile, *text, model);
}

common::Result<std::vector<std::uint8_t>> ReadEeprom(const RunOptions& options,
                                                     const models::Model& model) {
    return options.eepromFile.empty() ? common::Result<std::vector<std::uint8_t>>::Success({})
                                      : ReadEepromFile(options.eepromFile, model);
}

}  // namespace

common::Result<Simulation, CommandResult> PrepareSimulation(const RunOptions& options) {
    using PrepareResult = common::Result<Simulation, CommandResult>;
    common::Result<project::LoadedProgram, CommandResult> loaded =
        LoadOrReport({.file = options.program,
                      .kind = options.kind,
                      .model = options.model,
                      .assembler = options.assembler,
                      .withoutSource = options.withoutSource,
                      .clockFrequency = options.clockFrequency});
    if (!loaded) {
        return PrepareResult::Failure(std::move(loaded.error));
    }
    project::ModelFile& modelFile = loaded->modelFile;
    project::Program program = project::WithNames(*loaded);
    common::Result<std::vector<StimulusEvent>> events = ReadEvents(options, *modelFile.model);
    if (!events) {
        return PrepareResult::Failure(Refused(events.error));
    }
    common::Result<std::vector<std::uint8_t>> eeprom = ReadEeprom(options, *modelFile.model);
    if (!eeprom) {
        return PrepareResult::Failure(Refused(eeprom.error));
    }
    if (!options.recordings.coverageFile.empty() && !project::HasSource(program)) {
        return PrepareResult::Failure(Refused(ErrorText(
            options.program, "Coverage is told by lines, and this program has no source.")));
    }
    core::Processor processor =
        core::MakeProcessor(*modelFile.model, std::move(modelFile.description));
    processor.eepromWriteTime = options.eepromWriteTime;
    processor.adConversionTime = options.adConversionTime;
    core::FillProgramMemory(processor, program.image.words);
    return PrepareResult::Success({std::move(processor), std::move(program),
                                   *std::move(events.value), *std::move(eeprom.value)});
}

void Start(Simulation& simulation) {
    core::StartSimulation(simulation.processor);
    if (!simulation.eeprom.empty()) {
        std::copy(simulation.eeprom.begin(), simulation.eeprom.end(),
                  simulation.processor.state.eepromMemory.begin());
        core::StateChanged(simulation.processor);
    }
}

RunLimits LimitsOf(const RunOptions& options) {
    RunLimits limits = options.limits;
    if (const auto time = inspect::ReadDuration(options.time, options.clock)) {
        limits.clockCycles = std::min(*time, limits.clockCycles.value_or(*time));
    }
    return limits;
}

std::optional<std::string> ProgramUsageError(const RunOptions& options) {
    const std::string& program = options.program;
    if (!options.kind && !project::IsOfUnnamedKind(program)) {
        if (auto error =
                WrongKind(program, {project::ProgramKind::Hex, project::ProgramKind::Assembler,
                                    project::ProgramKind::Basic})) {
            return error;
        }
    }
    if (!options.time.empty() && !inspect::ReadDuration(options.time, options.clock)) {
        return "corvane-cli: --time: '" + options.time + "' is no duration such as 20ms.";
    }
    return std::nullopt;
}

}  // namespace corvane::cli
