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

}  // namespace

ProgramResult ReadHexFile(const std::string& file, const models::Model& model) {
    const common::Result<std::string> text = common::ReadTextFile(file);
    return text ? LoadHexText(file, *text, model)
                : ProgramResult::Failure(ErrorText(file, text.error));
}

ProgramResult ReadProgram(const std::string& file, const ModelFile& modelFile,
                          float clockFrequency) {
    const FileKind kind = KindOf(file);
    if (kind == FileKind::Hex) {
        return ReadHexFile(file, *modelFile.model);
    }
    common::Result<std::string> text = ReadSource(file);
    std::string assemblerFile = file;
    if (text && kind == FileKind::Basic) {
        text = CompileText(file, *text, modelFile, clockFrequency);
        assemblerFile = NameBeside(file, ".asm");  // where the compiler would have written it
    }
    if (!text) {
        return ProgramResult::Failure(text.error);
    }
    const assembler::Assembly assembly =
        AssembleText(assemblerFile, *text, modelFile, modelFile.model->defaultConfigurationWord);
    if (assembly.errorCount > 0) {
        return ProgramResult::Failure(AssemblyErrors(assemblerFile, assembly));
    }
    return LoadHexText(file, assembly.hex, *modelFile.model);
}

}  // namespace corvane::cli
