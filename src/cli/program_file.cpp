#include "cli/program_file.h"

#include "cli/diagnostics.h"
#include "cli/source_file.h"
#include "cli/translation.h"
#include "common/text_file.h"

namespace corvane::cli {

namespace {

using HexResult = common::Result<loader::Program>;
using ProgramResult = common::Result<project::Program>;

HexResult LoadHexText(const std::string& file, std::string_view text, const models::Model& model) {
    common::Result<loader::Program, loader::HexError> program =
        loader::ReadIntelHex(text, model.programWords);
    if (!program) {
        const loader::HexError& error = program.error;
        return HexResult::Failure(ErrorText(file, error.lineNumber, error.message));
    }
    return HexResult::Success(std::move(*program));
}

// Without a word from the person: what the name says, else Intel HEX when the text begins like it.
FileKind KindOfProgram(const ProgramFile& file, std::string_view text) {
    const FileKind kind = file.kind.value_or(KindOf(file.name));
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    const bool isHex = begin != std::string_view::npos && text[begin] == ':';
    return kind == FileKind::Unknown && isHex ? FileKind::Hex : kind;
}

ProgramResult WithImage(HexResult image) {
    return image ? ProgramResult::Success({.image = *std::move(image.value)})
                 : ProgramResult::Failure(std::move(image.error));
}

ProgramResult BuildFromAssembler(const std::string& file, const std::string& text,
                                 const ModelFile& modelFile, assembler::Assembly& assembly) {
    assembly = AssembleText(file, text, modelFile, modelFile.model->defaultConfigurationWord);
    return assembly.errorCount > 0 ? ProgramResult::Failure(AssemblyErrors(file, assembly))
                                   : WithImage(LoadHexText(file, assembly.hex, *modelFile.model));
}

ProgramResult BuildProgram(const std::string& file, FileKind kind, const std::string& text,
                           const ModelFile& modelFile, float clockFrequency) {
    assembler::Assembly assembly;
    if (kind == FileKind::Assembler) {
        ProgramResult program = BuildFromAssembler(file, text, modelFile, assembly);
        if (program) {
            project::AddAssemblerSource(*program, file, assembly);
        }
        return program;
    }
    const common::Result<basic::Compilation> compilation =
        CompileText(file, text, modelFile, clockFrequency);
    if (!compilation) {
        return ProgramResult::Failure(compilation.error);
    }
    // Errors of compiled text are found where the compiler would have written it.
    ProgramResult program =
        BuildFromAssembler(NameBeside(file, ".asm"), compilation->assembler, modelFile, assembly);
    if (program) {
        project::AddBasicSource(*program, file, *compilation, assembly);
    }
    return program;
}

}  // namespace

HexResult LoadHexFile(const std::string& file, std::string_view text, const models::Model& model) {
    HexResult program = LoadHexText(file, text, model);
    if (program) {
        if (const auto warning = loader::SkippedWordsMessage(*program, model.name)) {
            ReportWarning(file, 0, *warning);
        }
    }
    return program;
}

HexResult ReadHexFile(const std::string& file, const models::Model& model) {
    const common::Result<std::string> text = common::ReadTextFileOrPipe(file);
    return text ? LoadHexFile(file, *text, model) : HexResult::Failure(ErrorText(file, text.error));
}

ProgramResult ReadProgram(const ProgramFile& file, const ModelFile& modelFile,
                          float clockFrequency) {
    const common::Result<std::string> text = common::ReadTextFileOrPipe(file.name);
    if (!text) {
        return ProgramResult::Failure(ErrorText(file.name, text.error));
    }
    const FileKind kind = KindOfProgram(file, *text);
    if (kind == FileKind::Hex) {
        return WithImage(LoadHexFile(file.name, *text, *modelFile.model));
    }
    if (kind == FileKind::Unknown) {
        return ProgramResult::Failure(ErrorText(
            file.name, "It does not begin like Intel HEX; say with --format what it is."));
    }
    return text->empty() ? ProgramResult::Failure(ErrorText(file.name, kEmptySource))
                         : BuildProgram(file.name, kind, *text, modelFile, clockFrequency);
}

}  // namespace corvane::cli
