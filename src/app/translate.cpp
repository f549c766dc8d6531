#include "app/translate.h"

#include <algorithm>
#include <utility>

#include "app/assembly_with_gpasm.h"
#include "project/gpasm.h"

namespace corvane::app {

namespace {

constexpr const char* kNotWritten = "The output could not be written.";

std::string WarningLines(const std::vector<common::Diagnostic>& warnings) {
    std::string lines;
    for (const common::Diagnostic& warning : warnings) {
        lines += common::TextWithLine(warning) + "\r\n";
    }
    return lines;
}

std::string Count(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string Counts(std::size_t errors, std::size_t warnings) {
    return Count(errors, "error") + ", " + Count(warnings, "warning") + ". ";
}

struct Assembled {
    AssemblyRun run;
    assembler::Assembly assembly;  // without the listing, which the run has
};

Assembled AssembleAndWrite(const Workbench& workbench, Dialogs& dialogs, const SourceFile& source,
                           std::string_view text, const common::ProgressCallback& progress) {
    const std::string listingPath = source.PathWithExtension(".lst");
    const std::string hexPath = source.PathWithExtension(".hex");
    RemoveOldResults({listingPath, hexPath});
    const models::Model& model = workbench.Model();
    const std::vector<models::PredefinedSymbol> symbols =
        ReadSymbolsOrInform(dialogs, model.name, workbench.Processor().description.asmSymbolLines);
    assembler::Assembly assembly =
        assembler::Assemble(text, symbols, workbench.ConfigurationWord(), progress);
    AssemblyRun run;
    run.listedErrors = assembler::ErrorsInListing(assembly);
    run.messages = assembler::WarningsFor(assembly, model.name, model.programWords);
    run.errorCount = assembly.errorCount;
    run.isWrittenForGpasm = run.errorCount != 0 && project::IsWrittenForGpasm(assembly);
    run.isWritten = run.errorCount == 0 &&
                    WriteFileOrInform(dialogs, listingPath, assembly.listing) &&
                    WriteFileOrInform(dialogs, hexPath, assembly.hex);
    run.listing = std::exchange(assembly.listing, {});
    return {std::move(run), std::move(assembly)};
}

using Compiled = common::Result<basic::Compilation, common::Diagnostic>;

// An error is told.
Compiled CompileOrInform(const Workbench& workbench, Dialogs& dialogs, std::string_view text,
                         const common::ProgressCallback& progress) {
    Compiled compiled = basic::Compile(text, workbench.Model(), workbench.Processor().description,
                                       workbench.Settings().ClockFrequency(), progress);
    if (!compiled) {
        dialogs.Inform(common::TextWithLine(compiled.error));
    }
    return compiled;
}

void TellOfSuccess(Dialogs& dialogs, const std::string& path,
                   const std::vector<common::Diagnostic>& warnings) {
    const std::string success =
        "The compilation process was successful.\r\nOutput saved as " + path;
    if (warnings.empty()) {
        dialogs.Inform(success);
    } else {
        dialogs.InformWithDetails(success, WarningLines(warnings));
    }
}

}  // namespace

std::vector<models::PredefinedSymbol> ReadSymbolsOrInform(
    Dialogs& dialogs, std::string_view modelName, const std::vector<models::SymbolLine>& lines) {
    models::PredefinedSymbols read = models::ReadSymbolLines(lines);
    for (std::size_t i = 0; i < read.badLines.size(); ++i) {
        dialogs.Inform(models::BadSymbolLineMessage(modelName));
    }
    return std::move(read.symbols);
}

AssemblyRun AssembleSource(const Workbench& workbench, Dialogs& dialogs, const SourceFile& source,
                           std::string_view text, const common::ProgressCallback& progress,
                           const std::function<bool()>& isCancelled) {
    common::SettingsStore& store = workbench.Settings().Store();
    if (common::ReadSwitchSetting(store, kAssembleWithGpasm)) {
        return AssembleWithGpasm(workbench, dialogs, source, text, isCancelled);
    }
    Assembled assembled = AssembleAndWrite(workbench, dialogs, source, text, progress);
    AssemblyRun& run = assembled.run;
    if (run.errorCount == 0 && ChecksProgram(store)) {
        AddFindings(run, workbench, source.Name(),
                    project::FromAssembly(assembled.assembly, text, source.Name(),
                                          workbench.Model().programWords));
    }
    return std::move(run);
}

void ReportAssembly(Dialogs& dialogs, const AssemblyRun& run) {
    if (run.errorCount != 0) {
        dialogs.Inform("Assembly was not successful.\r\nYour assembler source contains " +
                       std::to_string(run.errorCount) + " errors.");
    } else if (!run.failure.empty()) {
        dialogs.Inform(run.failure);
    }
}

CompilationRun CompileSource(const Workbench& workbench, Dialogs& dialogs, const SourceFile& source,
                             std::string_view text, const common::ProgressCallback& progress) {
    const Compiled compiled = CompileOrInform(workbench, dialogs, text, progress);
    if (!compiled) {
        return {.error = compiled.error};
    }
    const std::string path = source.PathWithExtension(".asm");
    const bool isWritten = WriteFileOrInform(dialogs, path, compiled->assembler);
    if (isWritten) {
        TellOfSuccess(dialogs, path, compiled->warnings);
    }
    return {.error = {}, .warningCount = compiled->warnings.size(), .isWritten = isWritten};
}

CompilationRun BuildSource(const Workbench& workbench, Dialogs& dialogs, const SourceFile& source,
                           std::string_view text, const common::ProgressCallback& progress) {
    const Compiled compiled = CompileOrInform(workbench, dialogs, text, progress);
    if (!compiled) {
        return {.error = compiled.error};
    }
    const std::string path = source.PathWithExtension(".asm");
    CompilationRun run = {.error = {}, .warningCount = compiled->warnings.size()};
    if (!WriteFileOrInform(dialogs, path, compiled->assembler)) {
        return run;
    }
    const AssemblyRun assembly =
        AssembleAndWrite(workbench, dialogs, source, compiled->assembler, progress).run;
    ReportAssembly(dialogs, assembly);
    run.isWritten = assembly.isWritten;
    if (run.isWritten && !compiled->warnings.empty()) {
        TellOfSuccess(dialogs, path, compiled->warnings);
    }
    return run;
}

std::string Summary(const AssemblyRun& run) {
    const auto isWarning = [](const common::Diagnostic& message) {
        return message.severity == common::Severity::Warning;
    };
    const auto warnings = std::count_if(run.messages.begin(), run.messages.end(), isWarning);
    const std::string counts =
        Counts(static_cast<std::size_t>(run.errorCount), static_cast<std::size_t>(warnings));
    if (run.errorCount != 0 || !run.failure.empty()) {
        return counts + "The assembly was not successful.";
    }
    return counts + (run.isWritten ? "The assembly was successful." : kNotWritten) +
           (run.remark.empty() ? "" : " " + run.remark);
}

std::string Summary(const CompilationRun& run) {
    const std::string counts = Counts(run.error ? 1 : 0, run.warningCount);
    if (run.error) {
        return counts + "Line " + std::to_string(run.error->line) + ": " + run.error->text;
    }
    return counts + (run.isWritten ? "The compilation was successful." : kNotWritten);
}

}  // namespace corvane::app
