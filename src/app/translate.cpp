#include "app/translate.h"

#include <filesystem>
#include <system_error>

namespace corvane::app {

namespace {

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
    if (run.assembly.errorCount == 0 &&
        WriteFileOrInform(dialogs, listingPath, run.assembly.listing)) {
        WriteFileOrInform(dialogs, hexPath, run.assembly.hex);
    }
    return run;
}

void ReportAssembly(Dialogs& dialogs, const AssemblyRun& run) {
    if (run.assembly.errorCount != 0) {
        dialogs.Inform("Assembly was not successful.\r\nYour assembler source contains " +
                       std::to_string(run.assembly.errorCount) + " errors.");
    }
}

std::optional<common::Diagnostic> CompileSource(const Workbench& workbench, Dialogs& dialogs,
                                                const SourceFile& source, std::string_view text,
                                                const common::ProgressCallback& progress) {
    const auto compilation =
        basic::Compile(text, workbench.Model(), workbench.Processor().description,
                       workbench.Settings().ClockFrequency(), progress);
    if (!compilation) {
        dialogs.Inform(common::TextWithLine(compilation.error));
        return compilation.error;
    }
    const std::string path = source.PathWithExtension(".asm");
    if (WriteFileOrInform(dialogs, path, compilation->assembler)) {
        const std::string success =
            "The compilation process was successful.\r\nOutput saved as " + path;
        if (compilation->warnings.empty()) {
            dialogs.Inform(success);
        } else {
            dialogs.InformWithDetails(success, WarningLines(compilation->warnings));
        }
    }
    return std::nullopt;
}

}  // namespace corvane::app
