#include "project/build.h"

#include <utility>

#include "basic/editor_form.h"
#include "common/text_file.h"
#include "models/symbol_lines.h"
#include "project/gpasm.h"

namespace corvane::project {

namespace {

void AddErrors(const std::string& file, const assembler::Assembly& assembly, Messages& messages) {
    int lineNumber = 0;
    int lineCount = 0;
    auto note = assembly.notes.begin();
    for (const assembler::AsmLine& line : assembly.lines) {
        ++lineNumber;
        if (!line.hasError) {
            continue;
        }
        ++lineCount;
        AddError(messages, file, lineNumber, line.errorMessage);
        for (; note != assembly.notes.end() && note->line == lineNumber; ++note) {
            Add(messages, common::Severity::Note, file, lineNumber, note->text);
        }
    }
    AddError(messages, "", 0, std::to_string(lineCount) + (lineCount == 1 ? " error" : " errors"));
    if (IsWrittenForGpasm(assembly)) {
        Add(messages, common::Severity::Note, file, 0,
            "this source is written for gpasm; use --assembler gpasm.");
    }
}

}  // namespace

std::optional<std::string> ReadSource(const std::string& file, Messages& messages) {
    common::Result<std::string> text = common::ReadTextFile(file);
    if (!text || text->empty()) {
        AddError(messages, file, 0, text ? std::string(kEmptySource) : text.error);
        return std::nullopt;
    }
    return std::move(text.value);
}

assembler::Assembly AssembleText(const std::string& file, std::string_view text,
                                 const ModelFile& modelFile, int configurationWord,
                                 Messages& messages) {
    const std::vector<models::SymbolLine>& symbolLines = modelFile.description.asmSymbolLines;
    AddBadSymbolLines(modelFile, symbolLines, messages);
    assembler::Assembly assembly =
        assembler::Assemble(text, models::ReadSymbolLines(symbolLines).symbols, configurationWord);
    for (const common::Diagnostic& warning :
         assembler::WarningsFor(assembly, modelFile.model->name, modelFile.model->programWords)) {
        AddWarning(messages, file, warning.line, warning.text);
    }
    if (assembly.errorCount > 0) {
        AddErrors(file, assembly, messages);
    }
    return assembly;
}

std::optional<basic::Compilation> CompileText(const std::string& file, std::string_view text,
                                              const ModelFile& modelFile, float clockFrequency,
                                              Messages& messages) {
    const models::ModelDescription& description = modelFile.description;
    AddBadSymbolLines(modelFile, description.basicSymbolLines, messages);
    const std::string rewritten = basic::RewriteText(text, basic::EditorKeywords(description));
    common::Result<basic::Compilation, common::Diagnostic> compilation =
        basic::Compile(rewritten, *modelFile.model, description, clockFrequency);
    if (!compilation) {
        AddError(messages, file, compilation.error.line, compilation.error.text);
        return std::nullopt;
    }
    for (const common::Diagnostic& warning : compilation->warnings) {
        AddWarning(messages, file, warning.line, warning.text);
    }
    return std::move(compilation.value);
}

std::optional<Build> BuildText(const std::string& file, ProgramKind kind, std::string text,
                               const ModelFile& modelFile, float clockFrequency,
                               Messages& messages) {
    Build build{.text = std::move(text)};
    const int configurationWord = modelFile.model->defaultConfigurationWord;
    if (kind == ProgramKind::Basic) {
        build.compilation = CompileText(file, build.text, modelFile, clockFrequency, messages);
        if (!build.compilation) {
            return std::nullopt;
        }
        // Errors of compiled text are found where the compiler would have written it.
        build.assembly = AssembleText(NameBeside(file, ".asm"), build.compilation->assembler,
                                      modelFile, configurationWord, messages);
    } else {
        build.assembly = AssembleText(file, build.text, modelFile, configurationWord, messages);
    }
    if (build.assembly.errorCount > 0) {
        return std::nullopt;
    }
    build.image = loader::ProgramOf(build.assembly.words, modelFile.model->programWords);
    return build;
}

}  // namespace corvane::project
