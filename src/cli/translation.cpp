#include "cli/translation.h"

#include "basic/compiler.h"
#include "basic/editor_form.h"
#include "cli/diagnostics.h"
#include "models/symbol_lines.h"

namespace corvane::cli {

assembler::Assembly AssembleText(const std::string& file, std::string_view text,
                                 const ModelFile& modelFile, int configurationWord) {
    ReportBadSymbolLines(modelFile, modelFile.description.asmSymbolLines);
    assembler::Assembly assembly = assembler::Assemble(
        text, models::ReadSymbolLines(modelFile.description.asmSymbolLines).symbols,
        configurationWord);
    for (const common::Diagnostic& warning :
         assembler::WarningsFor(assembly, modelFile.model->name, modelFile.model->programWords)) {
        ReportWarning(file, warning.line, warning.text);
    }
    return assembly;
}

std::string AssemblyErrors(const std::string& file, const assembler::Assembly& assembly) {
    std::string errors;
    int lineNumber = 0;
    int lineCount = 0;
    auto note = assembly.notes.begin();
    for (const assembler::AsmLine& line : assembly.lines) {
        ++lineNumber;
        if (!line.hasError) {
            continue;
        }
        ++lineCount;
        errors += ErrorText(file, lineNumber, line.errorMessage) + "\n";
        for (; note != assembly.notes.end() && note->line == lineNumber; ++note) {
            errors += NoteText(file, lineNumber, note->text) + "\n";
        }
    }
    return errors + std::to_string(lineCount) + (lineCount == 1 ? " error" : " errors");
}

common::Result<std::string> CompileText(const std::string& file, std::string_view text,
                                        const ModelFile& modelFile, float clockFrequency) {
    using CompileResult = common::Result<std::string>;
    const models::ModelDescription& description = modelFile.description;
    ReportBadSymbolLines(modelFile, description.basicSymbolLines);
    const std::string rewritten = basic::RewriteText(text, basic::EditorKeywords(description));
    common::Result<basic::Compilation, common::Diagnostic> compilation =
        basic::Compile(rewritten, *modelFile.model, description, clockFrequency);
    if (!compilation) {
        const common::Diagnostic& error = compilation.error;
        return CompileResult::Failure(ErrorText(file, error.line, error.text));
    }
    for (const common::Diagnostic& warning : compilation->warnings) {
        ReportWarning(file, warning.line, warning.text);
    }
    return CompileResult::Success(std::move(compilation->assembler));
}

}  // namespace corvane::cli
