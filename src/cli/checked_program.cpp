#include "cli/checked_program.h"

#include <cctype>
#include <cstddef>
#include <utility>

#include "cli/program_file.h"
#include "cli/source_file.h"
#include "cli/translation.h"
#include "common/text.h"
#include "isa/instruction_set.h"

namespace corvane::cli {

namespace {

using ReadResult = common::Result<CheckedProgram>;

CheckedProgram EmptyProgram(int programWords) {
    const auto size = static_cast<std::size_t>(programWords);
    CheckedProgram result;
    result.program.words.resize(size);
    result.program.isProgrammed.resize(size);
    result.program.operands.resize(size);
    result.lines.resize(size);
    return result;
}

bool IsName(std::string_view operand) {
    const char first = operand.empty() ? '0' : operand.front();
    return first == '_' || std::isalpha(static_cast<unsigned char>(first)) != 0;
}

bool NamesLabel(int word) {
    const isa::Operation operation = isa::Classify(word);
    return operation == isa::Operation::Goto || operation == isa::Operation::Call;
}

ReadResult FromHex(const std::string& file, const models::Model& model) {
    common::Result<loader::Program> program = ReadHexFile(file, model);
    if (!program) {
        return ReadResult::Failure(program.error);
    }
    CheckedProgram result = EmptyProgram(model.programWords);
    result.program.words = std::move(program->words);
    result.program.isProgrammed = std::move(program->isWritten);
    return ReadResult::Success(std::move(result));
}

// Of lines with the same address the last one counts. The compiler's text selects its banks itself
// and names addresses by numbers, so that only its labels say what is meant.
CheckedProgram FromAssembly(const assembler::Assembly& assembly, int programWords,
                            bool isCompiled) {
    CheckedProgram result = EmptyProgram(programWords);
    for (const assembler::AsmLine& line : assembly.lines) {
        if (!line.opcode || line.address >= programWords) {
            continue;
        }
        const auto address = static_cast<std::size_t>(line.address);
        result.program.words[address] = static_cast<std::uint16_t>(*line.opcode);
        result.program.isProgrammed[address] = true;
        result.program.operands[address].reset();
        if (IsName(line.operand1) && (!isCompiled || NamesLabel(*line.opcode))) {
            result.program.operands[address] = {line.operand1, line.value1};
        }
    }
    return result;
}

void AddLines(const std::string& file, std::string_view text, const assembler::Assembly& assembly,
              CheckedProgram& result) {
    const std::vector<std::string_view> texts = common::SplitLines(text);
    for (std::size_t i = 0; i < assembly.lines.size(); ++i) {
        const assembler::AsmLine& line = assembly.lines[i];
        if (line.opcode && static_cast<std::size_t>(line.address) < result.lines.size()) {
            result.lines[static_cast<std::size_t>(line.address)] = {file, static_cast<int>(i) + 1,
                                                                    std::string(texts[i])};
        }
    }
}

}  // namespace

ReadResult ReadCheckedProgram(const std::string& file, const ModelFile& modelFile,
                              float clockFrequency) {
    const models::Model& model = *modelFile.model;
    const FileKind kind = KindOf(file);
    if (kind == FileKind::Hex) {
        return FromHex(file, model);
    }
    common::Result<std::string> text = ReadSource(file);
    std::string assemblerFile = file;
    if (text && kind == FileKind::Basic) {
        text = CompileText(file, *text, modelFile, clockFrequency);
        assemblerFile = NameBeside(file, ".asm");
    }
    if (!text) {
        return ReadResult::Failure(text.error);
    }
    const assembler::Assembly assembly =
        AssembleText(assemblerFile, *text, modelFile, model.defaultConfigurationWord);
    if (assembly.errorCount > 0) {
        return ReadResult::Failure(AssemblyErrors(assemblerFile, assembly));
    }
    CheckedProgram result = FromAssembly(assembly, model.programWords, kind == FileKind::Basic);
    if (kind == FileKind::Assembler) {
        AddLines(file, *text, assembly, result);
    }
    return ReadResult::Success(std::move(result));
}

}  // namespace corvane::cli
