#include "app/translate.h"

#include <filesystem>
#include <system_error>

namespace corvane::app {

namespace {

constexpr const char* kNotWritten = "The output could not be written.";

// So that an older result is never taken for the new one.
void RemoveFile(const std::string& path) {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
}

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
                           std::string_view text, const common::ProgressCallback& progress) {
    const std::string listingPath = source.PathWithExtension(".lst");
    const std::string hexPath = source.PathWithExtension(".hex");
    RemoveFile(listingPath);
    RemoveFile(hexPath);
    const models::Model& model = workbench.Model();
    const std::vector<models::PredefinedSymbol> symbols =
        ReadSymbolsOrInform(dialogs, model.name, workbench.Processor().description.asmSymbolLines);
    AssemblyRun run;
    run.assembly = assembler::Assemble(text, symbols, workbench.ConfigurationWord(), progress);
    run.warnings = assembler::WarningsFor(run.assembly, model.name, model.programWords);
    run.isWritten = run.assembly.errorCount == 0 &&
                    WriteFileOrInform(dialogs, listingPath, run.assembly.listing) &&
                    WriteFileOrInform(dialogs, hexPath, run.assembly.hex);
    return run;
}

void ReportAssembly(Dialogs& dialogs, const AssemblyRun& run) {
    if (run.assembly.errorCount != 0) {
        dialogs.Inform("Assembly was not successful.\r\nYour assembler source contains " +
                       std::to_string(run.assembly.errorCount) + " errors.");
    }
}

CompilationRun CompileSource(const Workbench& workbench, Dialogs& dialogs, const SourceFile& source,
                             std::string_view text, const common::ProgressCallback& progress) {
    const auto compilation =
        basic::Compile(text, workbench.Model(), workbench.Processor().description,
                       workbench.Settings().ClockFrequency(), progress);
    if (!compilation) {
        dialogs.Inform(common::TextWithLine(compilation.error));
        return {.error = compilation.error};
    }
    const std::string path = source.PathWithExtension(".asm");
    const bool isWritten = WriteFileOrInform(dialogs, path, compilation->assembler);
    if (isWritten) {
        const std::string success =
            "The compilation process was successful.\r\nOutput saved as " + path;
        if (compilation->warnings.empty()) {
            dialogs.Inform(success);
        } else {
            dialogs.InformWithDetails(success, WarningLines(compilation->warnings));
        }
    }
    return {.error = {}, .warningCount = compilation->warnings.size(), .isWritten = isWritten};
}

std::string Summary(const AssemblyRun& run) {
    const auto errors = static_cast<std::size_t>(run.assembly.errorCount);
    const std::string counts = Counts(errors, run.warnings.size());
    if (errors != 0) {
        return counts + "The assembly was not successful.";
    }
    return counts + (run.isWritten ? "The assembly was successful." : kNotWritten);
}

std::string Summary(const CompilationRun& run) {
    const std::string counts = Counts(run.error ? 1 : 0, run.warningCount);
    if (run.error) {
        return counts + "Line " + std::to_string(run.error->line) + ": " + run.error->text;
    }
    return counts + (run.isWritten ? "The compilation was successful." : kNotWritten);
}

}  // namespace corvane::app
