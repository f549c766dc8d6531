#include "cli/commands/run_command.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>

#include "cli/diagnostics.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "cli/run/eeprom_file.h"
#include "cli/run/simulation.h"
#include "cli/run/state_json.h"
#include "common/number_text.h"
#include "common/text.h"
#include "inspect/faults.h"
#include "inspect/observed_run.h"
#include "inspect/report.h"
#include "isa/instruction_set.h"
#include "project/loaded_program.h"
#include "project/statistics.h"

namespace corvane::cli {

namespace {

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
                ErrorText(options.program, UnrecognizedWordMessage(processor))};
    }
    if (state.pc >= processor.model->programWords) {
        return {Ending::ProgramFault,
                ErrorText(options.program, "The program ran past the end of program memory, to " +
                                               common::Hex4(state.pc) + ".")};
    }
    return {};
}

std::optional<std::string> WriteState(Output& output, const Simulation& simulation) {
    const std::string json = StateJson(simulation.processor, simulation.program.image.loadedWords);
    std::optional<std::string> error =
        output.Write(output.LineEnd() == "\n" ? json : common::WithCrLf(json));
    return error ? error : output.Close();
}

// A result that goes to standard output has it for itself.
bool WritesStandardOutput(const RunOptions& options) {
    const RecordingOptions& recordings = options.recordings;
    const auto files = {recordings.traceFile,    options.stateFile,      recordings.waveformFile,
                        recordings.coverageFile, recordings.profileFile, options.saveEepromFile};
    return std::find(files.begin(), files.end(), "-") != files.end();
}

std::optional<std::string> WriteStatistics(const RunOptions& options,
                                           const std::string& statistics) {
    if (!WritesStandardOutput(options)) {
        return WriteOutput("-", statistics + "\n");
    }
    WriteStandardError(statistics);
    return std::nullopt;
}

// Lines of a message, each once: two results may go to the same place.
void AddLine(std::string& message, const std::string& line) {
    if (message != line) {
        message += (message.empty() ? "" : "\n") + line;
    }
}

// A simulation from its start to its results.
class Simulator {
  public:
    Simulator(const RunOptions& options, Simulation& simulation)
        : options_(options),
          simulation_(simulation),
          names_(*simulation.processor.model, simulation.processor.description, simulation.program),
          run_(simulation.processor),
          faults_(options.expectations.faults, names_, simulation.processor.description),
          recordings_(options.recordings, simulation.program, options.program) {}

    CommandResult Simulate() {
        const inspect::Language language = {names_, options_.clock};
        const common::Result<Expectations> expectations =
            Expectations::Read(options_.expectations, language);
        if (!expectations) {
            return WrongUsage(expectations.error);
        }
        if (const auto error = recordings_.ReadSignals(language)) {
            return WrongUsage(*error);
        }
        if (const auto error = OpenFiles()) {
            return Refused(*error);
        }
        expectations->LookAt(run_, faults_);
        run_.SetBreakpoints(options_.breakpoints);
        CatchInterrupts();
        Start(simulation_);
        const float startTime = SecondsSinceMidnight() - 0.01F;
        run_.Begin();
        recordings_.Begin(run_.Now());
        const auto end = RunToEnd(run_, LimitsOf(options_), simulation_.events, recordings_);
        if (!end) {
            return Refused(end.error);
        }
        const std::string errors = WriteResults(startTime);
        const CommandResult result = Judged(*expectations, *end);
        return errors.empty() ? result : Refused(errors);
    }

  private:
    std::optional<std::string> OpenFiles() {
        if (auto error = recordings_.Open(run_)) {
            return error;
        }
        return options_.stateFile.empty() ? std::nullopt
                                          : stateOutput_.emplace().Open(options_.stateFile);
    }

    // Writes every result, even when one cannot be written; returns the errors, one a line.
    std::string WriteResults(float startTime) {
        const core::ProcessorState& state = simulation_.processor.state;
        std::string errors;
        const auto note = [&errors](const std::optional<std::string>& error) {
            if (error) {
                AddLine(errors, *error);
            }
        };
        for (const std::string& error : recordings_.End(run_.Now())) {
            note(error);
        }
        if (!options_.quiet) {
            note(WriteStatistics(
                options_, project::StatisticsMessage(state, startTime, SecondsSinceMidnight(),
                                                     options_.clockFrequency)));
        }
        if (stateOutput_) {
            note(WriteState(*stateOutput_, simulation_));
        }
        if (!options_.saveEepromFile.empty()) {
            note(WriteOutput(options_.saveEepromFile,
                             EepromHexText(state, *simulation_.processor.model)));
        }
        return errors;
    }

    CommandResult Judged(const Expectations& expectations, const inspect::Pause& end) const {
        CommandResult result = ResultOfRun(options_, simulation_.processor);
        if (result.ending == Ending::Interrupted) {
            return result;
        }
        const inspect::Scene scene = {run_.Now(), simulation_.program, options_.clock};
        for (const std::string& failure : expectations.Failures(end, faults_, scene)) {
            result.ending = Ending::Failed;
            AddLine(result.message, ErrorText(options_.program, failure));
        }
        return result;
    }

    const RunOptions& options_;
    Simulation& simulation_;
    inspect::Names names_;
    inspect::ObservedRun run_;
    inspect::FaultFinder faults_;
    Recordings recordings_;
    std::optional<Output> stateOutput_;
};

// What the command line says wrong, as far as it can be told without reading a file.
std::optional<std::string> UsageError(const RunOptions& options) {
    const RecordingOptions& recordings = options.recordings;
    const std::string& program = options.program;
    if (auto error = ProgramUsageError(options)) {
        return error;
    }
    if (!options.expectations.until.empty() && !options.limits.steps &&
        !options.limits.clockCycles && options.time.empty()) {
        return "corvane-cli: --until needs a limit: --steps, --cycles or --time.";
    }
    return OutputConflict(
        std::array{program, options.stimulusFile, options.eepromFile,
                   project::ModelFilePath(options.model)},
        std::array{recordings.traceFile, options.stateFile, recordings.waveformFile,
                   recordings.coverageFile, recordings.profileFile, options.saveEepromFile});
}

}  // namespace

CommandResult RunProgram(const RunOptions& options) {
    if (const std::optional<std::string> error = UsageError(options)) {
        return WrongUsage(*error);
    }
    common::Result<Simulation, CommandResult> simulation = PrepareSimulation(options);
    return simulation ? Simulator(options, *simulation).Simulate() : std::move(simulation.error);
}

}  // namespace corvane::cli
