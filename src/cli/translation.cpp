#include "cli/translation.h"

#include "basic/compiler.h"
#include "basic/editor_form.h"
#include "cli/diagnostics.h"
#include "cli/source_file.h"
#include "common/text_file.h"
#include "models/symbol_lines.h"
#include "project/gpasm.h"

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
    errors += std::to_string(lineCount) + (lineCount == 1 ? " error" : " errors");
    if (project::IsWrittenForGpasm(assembly)) {
        errors +=
            "\n" + NoteText(file, 0, "this source is written for gpasm; use --assembler gpasm.");
    }
    return errors;
}

common::Result<basic::Compilation> CompileText(const std::string& file, std::string_view text,
                                               const ModelFile& modelFile, float clockFrequency) {
    using CompileResult = common::Result<basic::Compilation>;
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
    return CompileResult::Success(*std::move(compilation.value));
}

std::optional<QuietBuild> BuildQuietly(const std::string& file, const ModelFile& modelFile,
                                       float clockFrequency) {
    auto text = common::ReadTextFile(file);
    if (!text) {
        return std::nullopt;
    }
    const models::Model& model = *modelFile.model;
    const models::ModelDescription& description = modelFile.description;
    QuietBuild build{.text = *std::move(text.value)};
    if (KindOf(file) == FileKind::Basic) {
        auto compilation =
            basic::Compile(basic::RewriteText(build.text, basic::EditorKeywords(description)),
                           model, description, clockFrequency);
        if (!compilation) {
            return std::nullopt;
        }
        build.compilation = *std::move(compilation.value);
    }
    build.assembly =
        assembler::Assemble(build.compilation ? build.compilation->assembler : build.text,
                            models::ReadSymbolLines(description.asmSymbolLines).symbols,
                            model.defaultConfigurationWord);
    auto image = loader::ReadIntelHex(build.assembly.hex, model.programWords);
    if (build.assembly.errorCount > 0 || !image) {
        return std::nullopt;
    }
    build.image = *std::move(image.value);
    return build;
}

}  // namespace corvane::cli
