#include "cli/run_command.h"

#include <array>
#include <chrono>
#include <optional>

#include "cli/diagnostics.h"
#include "cli/interrupt.h"
#include "cli/loaded_program.h"
#include "cli/output.h"
#include "cli/source_file.h"
#include "cli/state_json.h"
#include "common/number_text.h"
#include "common/text.h"
#include "common/text_file.h"
#include "core/reset.h"
#include "isa/instruction_set.h"
#include "project/statistics.h"

namespace corvane::cli {

namespace {

struct Simulation {
    core::Processor processor;
    int loadedWords;
    std::vector<StimulusEvent> events;
};

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

// Reads the input files and loads the program.
common::Result<Simulation, CommandResult> PrepareSimulation(const RunOptions& options) {
    using PrepareResult = common::Result<Simulation, CommandResult>;
    common::Result<LoadedProgram, CommandResult> program =
        LoadProgram({.file = options.program,
                     .model = options.model,
                     .assembler = options.assembler,
                     .withoutSource = options.withoutSource,
                     .clockFrequency = options.clockFrequency});
    if (!program) {
        return PrepareResult::Failure(std::move(program.error));
    }
    ModelFile& modelFile = program->modelFile;
    common::Result<std::vector<StimulusEvent>> events = ReadEvents(options, *modelFile.model);
    if (!events) {
        return PrepareResult::Failure(Refused(events.error));
    }
    core::Processor processor =
        core::MakeProcessor(*modelFile.model, std::move(modelFile.description));
    processor.eepromWriteTime = options.eepromWriteTime;
    processor.adConversionTime = options.adConversionTime;
    core::FillProgramMemory(processor, program->image.words);
    core::SetBreakpoints(processor, options.breakpoints);
    return PrepareResult::Success(
        {std::move(processor), program->image.loadedWords, std::move(*events)});
}

float SecondsSinceMidnight() {
    using Seconds = std::chrono::duration<double>;
    const Seconds now = std::chrono::system_clock::now().time_since_epoch() % std::chrono::days(1);
    return static_cast<float>(now.count());
}

// Words that the data sheets keep from older chips, for which they say what to write instead.
struct OldInstruction {
    int word;
    std::string_view text;
    std::string_view writtenRegister;
    int portCount;  // that the chip must have
};
constexpr std::array<OldInstruction, 4> kOldInstructions = {{
    {.word = 0x0062, .text = "OPTION", .writtenRegister = "OPTION_REG", .portCount = 0},
    {.word = 0x0065, .text = "TRIS PORTA", .writtenRegister = "TRISA", .portCount = 1},
    {.word = 0x0066, .text = "TRIS PORTB", .writtenRegister = "TRISB", .portCount = 2},
    {.word = 0x0067, .text = "TRIS PORTC", .writtenRegister = "TRISC", .portCount = 3},
}};

std::string UnrecognizedWordMessage(const core::Processor& processor) {
    const int word = processor.state.lastInstruction;
    const std::string place = " at " + common::Hex4(processor.state.pc) + " is no instruction";
    const int portCount = models::TraitsOf(processor.model->family).portCount;
    for (const OldInstruction& old : kOldInstructions) {
        if (old.word == word && old.portCount <= portCount) {
            return "The word " + common::Hex4(word) + " (" + std::string(old.text) + ")" + place +
                   " of this chip's simulation; write " + std::string(old.writtenRegister) +
                   " instead.";
        }
    }
    return "The word " + common::Hex4(word) + place + ".";
}

CommandResult ResultOfRun(const RunOptions& options, const core::Processor& processor) {
    const core::ProcessorState& state = processor.state;
    if (!state.stopRequested) {
        return {IsInterrupted() ? Ending::Interrupted : Ending::Done, ""};
    }
    if (state.lastInstruction >= 0 &&
        isa::Classify(state.lastInstruction) == isa::Operation::Unrecognized) {
        return {Ending::ProgramFault,
                ErrorText(options.program.name, UnrecognizedWordMessage(processor))};
    }
    if (state.pc >= processor.model->programWords) {
        return {
            Ending::ProgramFault,
            ErrorText(options.program.name, "The program ran past the end of program memory, to " +
                                                common::Hex4(state.pc) + ".")};
    }
    return {};
}

struct RunOutputs {
    std::optional<Trace> trace;
    std::optional<Output> state;
};

std::optional<std::string> Open(RunOutputs& outputs, const RunOptions& options) {
    std::optional<std::string> error;
    if (!options.traceFile.empty()) {
        error = outputs.trace.emplace().Open(options.traceFile);
    }
    if (!options.stateFile.empty() && !error) {
        error = outputs.state.emplace().Open(options.stateFile);
    }
    return error;
}

std::optional<std::string> WriteState(Output& output, const Simulation& simulation) {
    const std::string json = StateJson(simulation.processor, simulation.loadedWords);
    std::optional<std::string> error =
        output.Write(output.LineEnd() == "\n" ? json : common::WithCrLf(json));
    return error ? error : output.Close();
}

// The statistics keep out of a result that goes to standard output.
std::optional<std::string> WriteStatistics(const RunOptions& options,
                                           const std::string& statistics) {
    if (options.traceFile != "-" && options.stateFile != "-") {
        return WriteOutput("-", statistics + "\n");
    }
    WriteStandardError(statistics);
    return std::nullopt;
}

// Writes every result, even when one cannot be written; returns the errors, one a line.
std::string WriteResults(RunOutputs& outputs, const RunOptions& options,
                         const Simulation& simulation, const std::string& statistics) {
    std::string errors;
    const auto note = [&errors](const std::optional<std::string>& error) {
        if (error && errors != *error) {  // two results may go to the same place
            errors += (errors.empty() ? "" : "\n") + *error;
        }
    };
    if (outputs.trace) {
        note(outputs.trace->Close());
    }
    if (!statistics.empty()) {
        note(WriteStatistics(options, statistics));
    }
    if (outputs.state) {
        note(WriteState(*outputs.state, simulation));
    }
    return errors;
}

CommandResult Simulate(const RunOptions& options, Simulation& simulation) {
    RunOutputs outputs;
    if (const std::optional<std::string> error = Open(outputs, options)) {
        return Refused(*error);
    }
    CatchInterrupts();
    core::Processor& processor = simulation.processor;
    core::StartSimulation(processor);
    const float startTime = SecondsSinceMidnight() - 0.01F;
    if (const auto error = RunToEnd(processor, options.limits, simulation.events,
                                    outputs.trace ? &*outputs.trace : nullptr)) {
        return Refused(*error);
    }
    const std::string statistics =
        options.quiet ? ""
                      : project::StatisticsMessage(processor.state, startTime,
                                                   SecondsSinceMidnight(), options.clockFrequency);
    const std::string errors = WriteResults(outputs, options, simulation, statistics);
    return errors.empty() ? ResultOfRun(options, processor) : Refused(errors);
}

}  // namespace

CommandResult RunProgram(const RunOptions& options) {
    const std::string& program = options.program.name;
    if (!options.program.kind && !IsOfUnnamedKind(program)) {
        if (const auto error =
                WrongKind(program, {FileKind::Hex, FileKind::Assembler, FileKind::Basic})) {
            return WrongUsage(*error);
        }
    }
    if (const auto conflict =
            OutputConflict(std::array{program, options.stimulusFile, ModelFilePath(options.model)},
                           std::array{options.traceFile, options.stateFile})) {
        return WrongUsage(*conflict);
    }
    common::Result<Simulation, CommandResult> simulation = PrepareSimulation(options);
    return simulation ? Simulate(options, *simulation) : std::move(simulation.error);
}

}  // namespace corvane::cli
