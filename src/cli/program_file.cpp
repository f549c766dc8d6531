#include "cli/program_file.h"

#include "cli/diagnostics.h"
#include "cli/source_file.h"
#include "cli/translation.h"
#include "common/text_file.h"

namespace corvane::cli {

namespace {

using ProgramResult = common::Result<loader::Program>;

ProgramResult LoadHexText(const std::string& file, std::string_view text,
                          const models::Model& model) {
    common::Result<loader::Program, loader::HexError> program =
        loader::ReadIntelHex(text, model.programWords);
    if (!program) {
        const loader::HexError& error = program.error;
        return ProgramResult::Failure(ErrorText(file, error.lineNumber, error.message));
    }
    return ProgramResult::Success(std::move(*program));
}

// Without a word from the person: what the name says, else Intel HEX when the text begins like it.
FileKind KindOfProgram(const ProgramFile& file, std::string_view text) {
    const FileKind kind = file.kind.value_or(KindOf(file.name));
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    const bool isHex = begin != std::string_view::npos && text[begin] == ':';
    return kind == FileKind::Unknown && isHex ? FileKind::Hex : kind;
}

ProgramResult BuildProgram(const std::string& file, FileKind kind, const std::string& text,
                           const ModelFile& modelFile, float clockFrequency) {
    const bool isBasic = kind == FileKind::Basic;
    const common::Result<std::string> source =
        isBasic ? CompileText(file, text, modelFile, clockFrequency)
                : common::Result<std::string>::Success(text);
    if (!source) {
        return ProgramResult::Failure(source.error);
    }
    // Errors of compiled text are found where the compiler would have written it.
    const std::string assemblerFile = isBasic ? NameBeside(file, ".asm") : file;
    const assembler::Assembly assembly =
        AssembleText(assemblerFile, *source, modelFile, modelFile.model->defaultConfigurationWord);
    if (assembly.errorCount > 0) {
        return ProgramResult::Failure(AssemblyErrors(assemblerFile, assembly));
    }
    return LoadHexText(file, assembly.hex, *modelFile.model);
}

}  // namespace

ProgramResult LoadHexFile(const std::string& file, std::string_view text,
                          const models::Model& model) {
    ProgramResult program = LoadHexText(file, text, model);
    if (program) {
        if (const auto warning = loader::SkippedWordsMessage(*program, model.name)) {
            ReportWarning(file, 0, *warning);
        }
    }
    return program;
}

ProgramResult ReadHexFile(const std::string& file, const models::Model& model) {
    const common::Result<std::string> text = common::ReadTextFileOrPipe(file);
    return text ? LoadHexFile(file, *text, model)
                : ProgramResult::Failure(ErrorText(file, text.error));
}

ProgramResult ReadProgram(const ProgramFile& file, const ModelFile& modelFile,
                          float clockFrequency) {
    const common::Result<std::string> text = common::ReadTextFileOrPipe(file.name);
    if (!text) {
        return ProgramResult::Failure(ErrorText(file.name, text.error));
    }
    const FileKind kind = KindOfProgram(file, *text);
    if (kind == FileKind::Hex) {
        return LoadHexFile(file.name, *text, *modelFile.model);
    }
    if (kind == FileKind::Unknown) {
        return ProgramResult::Failure(ErrorText(
            file.name, "It does not begin like Intel HEX; say with --format what it is."));
    }
    return text->empty() ? ProgramResult::Failure(ErrorText(file.name, kEmptySource))
                         : BuildProgram(file.name, kind, *text, modelFile, clockFrequency);
}

}  // namespace corvane::cli
