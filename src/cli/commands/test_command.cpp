#include "cli/commands/test_command.h"

#include <array>
#include <filesystem>
#include <limits>
#include <optional>
#include <set>
#include <utility>

#include "cli/diagnostics.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "common/text.h"
#include "inspect/coverage.h"
#include "inspect/waveform.h"
#include "scenario/prepared_tests.h"
#include "scenario/report.h"
#include "scenario/test_run.h"

namespace corvane::cli {

namespace fs = std::filesystem;

namespace {

// A name for a file of a test: what some file system does not take becomes "_".
std::string FileNameOf(std::string_view text) {
    constexpr std::size_t kLongest = 100;
    std::string name;
    for (const char c : text.substr(0, kLongest)) {
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                             (c >= 'a' && c <= 'z') || c == '-' || c == '.';
        name += isPlain ? c : '_';
    }
    return name;
}

// The test files among these paths: files as they are named, and all below a folder. The error is
// complete.
common::Result<std::vector<std::string>, CommandResult> FindTestFiles(
    const std::vector<std::string>& paths) {
    using FindResult = common::Result<std::vector<std::string>, CommandResult>;
    std::vector<std::string> files;
    for (const std::string& path : paths) {
        std::error_code error;
        if (fs::is_directory(path, error)) {
            const auto found = scenario::TestFilesBelow(path);
            if (!found || found->empty()) {
                return FindResult::Failure(Refused(ErrorText(
                    path, found ? "There is no test file (.test) in this folder." : found.error)));
            }
            files.insert(files.end(), found->begin(), found->end());
        } else if (scenario::IsTestFile(path)) {
            files.push_back(path);
        } else {
            return FindResult::Failure(
                WrongUsage(ErrorText(path, "The name must end in .test, or be that of a folder.")));
        }
    }
    return FindResult::Success(std::move(files));
}

class Tester {
  public:
    explicit Tester(const TestOptions& options) : options_(options) {}

    CommandResult Run() {
        const auto files = FindTestFiles(options_.paths);
        if (!files) {
            return files.error;
        }
        for (const std::string& file : *files) {
            if (const auto conflict = OutputConflict(
                    std::array{file}, std::array{options_.junitFile, options_.coverageFile})) {
                return WrongUsage(*conflict);
            }
        }
        CatchInterrupts();
        for (const std::string& file : *files) {
            if (IsInterrupted()) {
                break;
            }
            RunFile(file);
        }
        return Result();
    }

  private:
    void RunFile(const std::string& file) {
        project::AssemblerChoice assembler = options_.assembler;
        assembler.isCancelled = [] { return IsInterrupted(); };
        project::Messages messages;
        const std::optional<scenario::PreparedTests> prepared =
            scenario::PrepareTests(file, options_.modelFolder, assembler, messages);
        Report(messages);
        if (!prepared) {
            isRefused_ = true;
            return;
        }
        const project::ModelFile& modelFile = prepared->loaded.modelFile;
        const inspect::Clock clock = prepared->setup.clock;
        const scenario::Bench bench = {.file = file,
                                       .model = *modelFile.model,
                                       .description = modelFile.description,
                                       .program = prepared->program,
                                       .setup = prepared->setup,
                                       .names = *prepared->names,
                                       .faults = options_.faults,
                                       .timeLimit = TimeLimit(clock),
                                       .isCancelled = IsInterrupted,
                                       .debugArguments = prepared->debugArguments};
        scenario::FileReport report = {file, clock, {}};
        inspect::Coverage coverage;
        for (const scenario::Test& test : prepared->tests) {
            if (IsSelected(test.name) && !IsInterrupted()) {
                RunOne(test, bench, coverage, report);
            }
        }
        if (!options_.coverageFile.empty() && !report.outcomes.empty()) {
            coverageText_ += coverage.LcovText(prepared->program);
        }
        reports_.push_back(std::move(report));
    }

    void RunOne(const scenario::Test& test, const scenario::Bench& bench,
                inspect::Coverage& coverage, scenario::FileReport& report) {
        scenario::Recorders recorders;
        recorders.counts = options_.coverageFile.empty() ? nullptr : &coverage;
        std::optional<scenario::Outcome> outcome = scenario::RunTest(test, bench, recorders);
        if (!outcome) {
            return;
        }
        if (!options_.tap) {
            Tell(scenario::OutcomeText(report, *outcome));
        }
        if (!outcome->failure.empty() && !options_.waveformFolder.empty()) {
            RecordFailure(test, bench);
        }
        report.outcomes.push_back(*std::move(outcome));
    }

    // The failed test once more, which does the same, with its pins recorded.
    void RecordFailure(const scenario::Test& test, const scenario::Bench& bench) {
        std::error_code folderError;
        fs::create_directories(options_.waveformFolder, folderError);
        const std::string plain = FileNameOf(bench.file + "-" + test.name);
        std::string name = plain;
        for (int i = 2; !waveformNames_.insert(name).second; ++i) {
            name = plain + "-" + std::to_string(i);
        }
        Output output;
        const inspect::Language language = {bench.names, bench.setup.clock};
        inspect::Waveform waveform(inspect::PinSignals(language), bench.model.name,
                                   bench.setup.clock);
        std::optional<std::string> error =
            output.Open((fs::path(options_.waveformFolder) / (name + ".vcd")).string());
        if (!error) {
            const auto write = [&](const std::string& text) {
                error = error ? error : output.Write(text);
            };
            scenario::RunTest(test, bench, {.waveform = &waveform, .writeWaveform = write});
            error = error ? error : output.Close();
        }
        NoteError(error);
    }

    CommandResult Result() {
        std::size_t tests = 0;
        int failures = 0;
        for (const scenario::FileReport& report : reports_) {
            tests += report.outcomes.size();
            failures += scenario::FailureCount(report);
        }
        if (IsInterrupted()) {
            return {Ending::Interrupted, ""};
        }
        if (tests == 0 && !isRefused_) {
            return WrongUsage("corvane-cli: -k: No test's name contains '" + options_.nameFilter +
                              "'.");
        }
        Tell(options_.tap ? scenario::TapText(reports_) : scenario::SummaryText(reports_));
        if (!options_.junitFile.empty()) {
            NoteError(WriteForTools(options_.junitFile, scenario::JUnitText(reports_)));
        }
        if (!options_.coverageFile.empty()) {
            NoteError(WriteForTools(options_.coverageFile, coverageText_));
        }
        if (isRefused_) {
            return {Ending::Refused, ""};
        }
        return {failures > 0 ? Ending::Failed : Ending::Done, ""};
    }

    std::int64_t TimeLimit(const inspect::Clock& clock) const {
        constexpr inspect::Decimal kDefault = {scenario::kDefaultTimeLimitSeconds, 0};
        const auto limit = options_.timeLimit.empty()
                               ? inspect::ClocksIn(kDefault, "s", clock)
                               : inspect::ReadDuration(options_.timeLimit, clock);
        return limit.value_or(std::numeric_limits<std::int64_t>::max());
    }

    bool IsSelected(const std::string& name) const {
        return common::ToUpper(name).find(common::ToUpper(options_.nameFilter)) !=
               std::string::npos;
    }

    // On standard output, unless a file wants it for itself.
    void Tell(const std::string& text) {
        if (options_.junitFile == "-" || options_.coverageFile == "-") {
            WriteStandardError(common::TrimRight(text.substr(0, text.size() - 1)));
        } else {
            NoteError(WriteOutput("-", text));
        }
    }

    void NoteError(const std::optional<std::string>& error) {
        if (error) {
            WriteStandardError(*error);
            isRefused_ = true;
        }
    }

    const TestOptions& options_;
    bool isRefused_ = false;
    std::vector<scenario::FileReport> reports_;
    std::string coverageText_;
    std::set<std::string> waveformNames_;
};

}  // namespace

CommandResult TestFirmware(const TestOptions& options) {
    if (!options.timeLimit.empty() && !inspect::ReadDuration(options.timeLimit, {})) {
        return WrongUsage("corvane-cli: --time-limit: '" + options.timeLimit +
                          "' is no duration such as 20ms.");
    }
    return Tester(options).Run();
}

}  // namespace corvane::cli
