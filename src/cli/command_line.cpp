#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "cli/commands/assemble_command.h"
#include "cli/commands/build_command.h"
#include "cli/commands/check_command.h"
#include "cli/commands/compile_command.h"
#include "cli/commands/debug_command.h"
#include "cli/commands/disassemble_command.h"
#include "cli/commands/format_command.h"
#include "cli/commands/models_command.h"
#include "cli/commands/run_command.h"
#include "cli/commands/test_command.h"
#include "cli/diagnostics.h"
#include "cli/option_values.h"
#include "cli/output.h"

namespace corvane::cli {

namespace {

constexpr const char* kClockDescription = "Clock frequency, 4 by default";
constexpr int kHighestConfigurationWord = 0x3FFF;
constexpr int kHighestAddress = core::kProgramCounterRange - 1;

int ExitStatus(Ending ending) {
    switch (ending) {
        case Ending::Done:
            return 0;
        case Ending::Refused:
            return 1;
        case Ending::WrongUsage:
            return 2;
        case Ending::ProgramFault:
            return 3;
        case Ending::Interrupted:
            return 4;
        case Ending::Failed:
            return 5;
    }
    return 1;
}

void AddModelOptions(CLI::App& app, project::ModelChoice& model) {
    app.add_option_function<std::string>(
           "-m,--model",
           [&model](const std::string& name) {
               const std::optional<models::NamedModel> named = models::FindModelAsWritten(name);
               if (!named) {
                   throw CLI::ValidationError(
                       "--model", "There is no model '" + name + "'; 'models' lists them.");
               }
               model.model = &models::kModelCatalogue[static_cast<std::size_t>(named->row)];
               model.name = name;
               model.warning = named->warning;
           },
           "Microcontroller; without it the one that a .cod file names, or PIC16F84")
        ->type_name("NAME");
    app.add_option("--model-dir", model.folder, "Folder of the .cfg files")->type_name("DIR");
}

void AddSource(CLI::App& app, std::string& source, const std::string& name) {
    app.add_option("FILE", source, name)->required();
}

void AddOutput(CLI::App& app, const std::string& names, std::string& file,
               const std::string& description) {
    app.add_option(names, file, description)->type_name("FILE");
}

void AddConfigurationWord(CLI::App& app, std::optional<int>& word) {
    AddHexOption(app, "--config", word, kHighestConfigurationWord,
                 "Configuration word, the model's default without it");
}

void AddClock(CLI::App& app, float& megahertz) {
    AddFrequencyOption(app, "--clock", megahertz, kClockDescription);
}

void AddFormat(CLI::App& app, std::optional<project::ProgramKind>& kind) {
    app.add_option_function<std::string>(
           "--format", [&kind](const std::string& name) { kind = project::KindOf("." + name); },
           "What the program is, whatever its name says")
        ->type_name("hex|asm|bas")
        ->check(CLI::IsMember({"hex", "asm", "bas"}));
}

void AddAssembler(CLI::App& app, project::AssemblerChoice& assembler) {
    app.add_option_function<std::string>(
           "--assembler",
           [&assembler](const std::string& name) {
               assembler.kind = name == "gpasm" ? project::AssemblerKind::Gpasm
                                                : project::AssemblerKind::Corvane;
           },
           "What assembles an .asm source: Corvane itself, by default, or gpasm")
        ->type_name("corvane|gpasm")
        ->check(CLI::IsMember({"corvane", "gpasm"}));
    app.add_option("--assembler-option", assembler.passedOn,
                   "Option of gpasm, as --assembler-option=-DNAME=1; may be repeated")
        ->type_name("OPT")
        ->allow_extra_args(false);
}

void AddNoSource(CLI::App& app, bool& withoutSource) {
    app.add_flag("--no-source", withoutSource,
                 "Do not look for the source of a .hex file beside it");
}

// What the whole command line fills.
struct CommandLine {
    CLI::App app{"Assembles, compiles, disassembles and simulates programs for PIC16 controllers.",
                 "corvane-cli"};
    project::ModelChoice model;
    CommandResult result;
};

// Adds a command that runs once the whole line has been read.
template <typename Options, typename Declare, typename Command>
void AddCommand(CommandLine& line, const std::string& name, const std::string& description,
                Declare declareOptions, Command command) {
    CLI::App& app = *line.app.add_subcommand(name, description);
    const auto options = std::make_shared<Options>();
    declareOptions(app, *options);
    AddModelOptions(app, line.model);
    app.callback([options, command, &line] {
        options->model = line.model;
        if (!line.model.warning.empty()) {
            ReportWarning("corvane-cli", 0, line.model.warning);
        }
        line.result = command(*options);
    });
}

void AddModels(CommandLine& line) {
    CLI::App& app = *line.app.add_subcommand(
        "models",
        "Lists the models: name, program words, EEPROM bytes, default configuration word, family");
    AddModelOptions(app, line.model);
    app.callback([&line] { line.result = ListModels(); });
}

void AddAssemble(CommandLine& line) {
    AddCommand<AssembleOptions>(
        line, "assemble", "Assembles a source to an Intel HEX file and a listing",
        [](CLI::App& app, AssembleOptions& options) {
            AddSource(app, options.source, "Assembler source, .asm");
            AddOutput(app, "-o,--output", options.hexFile, "Intel HEX file, beside the source");
            AddOutput(app, "-l,--listing", options.listingFile, "Listing, beside the source");
            AddConfigurationWord(app, options.configurationWord);
            AddAssembler(app, options.assembler);
        },
        Assemble);
}

void AddCompile(CommandLine& line) {
    AddCommand<CompileOptions>(
        line, "compile", "Compiles a BASIC source to an assembler source",
        [](CLI::App& app, CompileOptions& options) {
            AddSource(app, options.source, "BASIC source, .bas");
            AddOutput(app, "-o,--output", options.assemblerFile,
                      "Assembler source, beside the BASIC source");
            AddClock(app, options.clockFrequency);
        },
        Compile);
}

void AddFormatCommand(CommandLine& line) {
    AddCommand<FormatOptions>(
        line, "format", "Prints a BASIC source as the editor rewrites it",
        [](CLI::App& app, FormatOptions& options) {
            AddSource(app, options.source, "BASIC source, .bas");
            app.add_flag("-i,--in-place", options.inPlace, "Write it back into the file");
        },
        Format);
}

void AddBuild(CommandLine& line) {
    AddCommand<BuildOptions>(
        line, "build", "Compiles when needed, then assembles",
        [](CLI::App& app, BuildOptions& options) {
            AddSource(app, options.source, "BASIC or assembler source, .bas or .asm");
            AddOutput(app, "-o,--output", options.hexFile, "Intel HEX file, beside the source");
            AddConfigurationWord(app, options.configurationWord);
            AddClock(app, options.clockFrequency);
            AddAssembler(app, options.assembler);
        },
        Build);
}

void AddDisassemble(CommandLine& line) {
    AddCommand<DisassembleOptions>(
        line, "disassemble", "Lists the program of an Intel HEX file",
        [](CLI::App& app, DisassembleOptions& options) {
            AddSource(app, options.program, "Program, .hex");
            AddOutput(app, "-o,--output", options.listingFile,
                      "Listing, standard output by default");
            app.add_flag("--no-opcodes", options.withoutOpcodes, "Only the instructions");
        },
        Disassemble);
}

void AddExpression(CLI::App& app, const std::string& name, std::vector<std::string>& expressions,
                   const std::string& description) {
    app.add_option(name, expressions, description)
        ->type_name("EXPR")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void AddExpectations(CLI::App& app, RunOptions& options) {
    ExpectationOptions& expectations = options.expectations;
    app.add_option("--until", expectations.until, "End as soon as it is not 0 after a step")
        ->type_name("EXPR");
    AddExpression(app, "--expect", expectations.expected, "Must not be 0 when the run ends");
    AddExpression(app, "--never", expectations.never, "Must be 0 after every step");
}

void AddRecordings(CLI::App& app, RunOptions& options) {
    RecordingOptions& recordings = options.recordings;
    AddOutput(app, "--vcd", recordings.waveformFile, "Write a waveform");
    app.add_option("--signals", recordings.signals,
                   "What the waveform shows, separated by commas; every pin by default")
        ->type_name("LIST");
    AddOutput(app, "--coverage", recordings.coverageFile, "Write executed lines as lcov does");
    AddOutput(app, "--profile", recordings.profileFile,
              "Write cycles per line and subroutine as callgrind does");
    AddOutput(app, "--save-eeprom", options.saveEepromFile, "Write the EEPROM's content");
    app.add_flag("--source", recordings.traceSource,
                 "Name the source line in each line of the trace");
}

// What runs, and how far.
void AddSimulation(CLI::App& app, RunOptions& options) {
    AddSource(app, options.program,
              "Program, or source to build first: .hex, .asm, .bas, or a pipe");
    AddFormat(app, options.kind);
    AddNumberOption(app, "-n,--steps", options.limits.steps, 0, "End after N steps");
    AddNumberOption(app, "-c,--cycles", options.limits.clockCycles, 0,
                    "End once N clock cycles have passed");
    app.add_option("--time", options.time, "End once so much simulated time has passed")
        ->type_name("DURATION");
    AddHexListOption(app, "-b,--break", options.breakpoints, kHighestAddress, kMaxBreakpoints,
                     "End when pc is this address after a step; up to 10 times");
    AddOutput(app, "-s,--stimulus", options.stimulusFile, "Pin and analog events");
    AddFaultsOption(app, "--strict", options.expectations.faults,
                    "End at the first fault of the program");
    AddOutput(app, "--eeprom", options.eepromFile, "The EEPROM's content before the first step");
    AddFrequencyOption(app, "--clock", options.clockFrequency, kClockDescription,
                       [&options](const std::string& text) {
                           options.clock = inspect::ReadClock(text).value_or(options.clock);
                       });
    AddAssembler(app, options.assembler);
    AddNoSource(app, options.withoutSource);
    AddNumberOption(app, "--eeprom-write-time", options.eepromWriteTime, 1,
                    "Clock cycles of an EEPROM write");
    AddNumberOption(app, "--ad-conversion-time", options.adConversionTime, 1,
                    "Clock cycles of an A/D conversion");
}

void AddRun(CommandLine& line) {
    AddCommand<RunOptions>(
        line, "run", "Simulates a program",
        [](CLI::App& app, RunOptions& options) {
            AddSimulation(app, options);
            AddOutput(app, "-t,--trace", options.recordings.traceFile, "Write one line per step");
            AddOutput(app, "--state", options.stateFile, "Write the final state as JSON");
            app.add_flag("-q,--quiet", options.quiet, "No statistics message");
            AddExpectations(app, options);
            AddRecordings(app, options);
        },
        RunProgram);
}

void AddDebug(CommandLine& line) {
    AddCommand<RunOptions>(line, "debug",
                           "Debugs a program: steps and goes back, by commands read line by line",
                           AddSimulation, Debug);
}

void AddTest(CommandLine& line) {
    CLI::App& app = *line.app.add_subcommand("test", "Runs firmware tests");
    const auto options = std::make_shared<TestOptions>();
    app.add_option("PATH", options->paths, "Test files, .test, or folders of them")->required();
    AddOutput(app, "--junit", options->junitFile, "Write a report as JUnit does");
    app.add_flag("--tap", options->tap, "Answer as the Test Anything Protocol, version 13");
    app.add_option("-k", options->nameFilter, "Only tests whose name contains this, in any case")
        ->type_name("TEXT");
    app.add_option("--vcd-on-failure", options->waveformFolder,
                   "Write the waveform of each failed test into this folder")
        ->type_name("DIR");
    AddOutput(app, "--coverage", options->coverageFile, "Write executed lines as lcov does");
    AddFaultsOption(app, "--strict", options->faults,
                    "A test also fails at the first fault of the program");
    app.add_option("--time-limit", options->timeLimit,
                   "Simulated time that a test may take, 10 minutes by default")
        ->type_name("DURATION");
    AddAssembler(app, options->assembler);
    app.add_option("--model-dir", line.model.folder, "Folder of the .cfg files")->type_name("DIR");
    app.callback([options, &line] {
        options->modelFolder = line.model.folder;
        line.result = TestFirmware(*options);
    });
}

void AddCheck(CommandLine& line) {
    AddCommand<CheckOptions>(
        line, "check", "Says what is wrong with a program without running it",
        [](CLI::App& app, CheckOptions& options) {
            AddSource(app, options.program, "Program, or source to build first: .hex, .asm, .bas");
            app.add_option("--rules", options.rules,
                           "Only these of bank, page, table, stack, runs-off, isr-context and "
                           "unreachable, separated by commas, or all; the last one is not told "
                           "otherwise")
                ->type_name("LIST");
            AddAssembler(app, options.assembler);
            AddNoSource(app, options.withoutSource);
            AddClock(app, options.clockFrequency);
        },
        CheckProgram);
}

CommandResult PrintText(const std::string& text) {
    const std::optional<std::string> error = WriteOutput("-", text);
    return error ? Refused(*error) : CommandResult{};
}

// The library's way to say what it read is an exception; this is the only place that sees one.
CommandResult ParseAndRun(CommandLine& line, int argc, const char* const* argv) {
    try {
        line.app.parse(argc, argv);
        return line.result;
    } catch (const CLI::CallForHelp&) {
        return PrintText(line.app.help());
    } catch (const CLI::CallForVersion&) {
        return PrintText("corvane-cli " CORVANE_VERSION "\n");
    } catch (const CLI::ParseError& error) {
        return WrongUsage(std::string("corvane-cli: ") + error.what() +
                          "\nRun 'corvane-cli --help' or 'corvane-cli COMMAND --help'.");
    }
}

}  // namespace

int RunCommandLine(int argc, const char* const* argv) {
    CommandLine line;
    line.app.require_subcommand(1);
    line.app.set_version_flag("--version", "");
    AddModelOptions(line.app, line.model);
    for (const auto add : {AddModels, AddAssemble, AddCompile, AddFormatCommand, AddBuild, AddCheck,
                           AddDisassemble, AddRun, AddTest, AddDebug}) {
        add(line);
    }
    const CommandResult result = ParseAndRun(line, argc, argv);
    if (!result.message.empty()) {
        WriteStandardError(result.message);
    }
    return ExitStatus(result.ending);
}

}  // namespace corvane::cli
