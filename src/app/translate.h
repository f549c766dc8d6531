// Assemble and Compile, from the saved source to the files beside it. A window checks
// SourceFile::IsReady, saves, disables its menus, calls the translation, enables the menus, shows
// the result, and reports.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/source_file.h"
#include "app/workbench.h"
#include "asm/assembler.h"
#include "asm/listing.h"
#include "basic/compiler.h"
#include "common/diagnostic.h"
#include "common/progress.h"

namespace corvane::app {

struct AssemblyRun {
    std::string listing;
    std::vector<assembler::ListedError> listedErrors;  // what the listing says in its lines
    std::vector<common::Diagnostic> messages;          // what stands below the listing
    int errorCount = 0;
    std::string failure;             // why there is no result besides; empty otherwise
    std::string remark;              // on the program's microcontroller; empty without one
    bool isWrittenForGpasm = false;  // and has been refused
    bool isWritten = false;          // all its files
};

struct CompilationRun {
    std::optional<common::Diagnostic> error;
    std::size_t warningCount = 0;
    bool isWritten = false;  // all its files
};

// Assembles the saved text for the selected model, with the assembler that is set, and writes the
// listing and the HEX file beside the source; with errors, no HEX file is left, and no listing
// either unless it is gpasm's. What is assembled is checked if that is set. Tells of bad symbol
// lines of the model's description file and of files that cannot be written.
AssemblyRun AssembleSource(const Workbench& workbench, Dialogs& dialogs, const SourceFile& source,
                           std::string_view text, const common::ProgressCallback& progress = {},
                           const std::function<bool()>& isCancelled = {});

// The message after an assembly with errors; nothing to say after a successful one.
void ReportAssembly(Dialogs& dialogs, const AssemblyRun& run);

// Compiles the rewritten text for the selected model, writes the assembler source beside it and
// tells of the success, with warnings as its details. An error is told and returned; it leaves an
// older output file as it was.
CompilationRun CompileSource(const Workbench& workbench, Dialogs& dialogs, const SourceFile& source,
                             std::string_view text, const common::ProgressCallback& progress = {});

// The same as far as the HEX file: what was compiled is assembled, with the listing and the HEX
// file beside the source. A success without warnings is not told.
CompilationRun BuildSource(const Workbench& workbench, Dialogs& dialogs, const SourceFile& source,
                           std::string_view text, const common::ProgressCallback& progress = {});

// What a translation came to, in a line: "2 errors, 0 warnings. The assembly was not successful."
std::string Summary(const AssemblyRun& run);
std::string Summary(const CompilationRun& run);

// Tells of each bad line among the model's predefined symbols and returns the good ones.
std::vector<models::PredefinedSymbol> ReadSymbolsOrInform(
    Dialogs& dialogs, std::string_view modelName, const std::vector<models::SymbolLine>& lines);

}  // namespace corvane::app
