#include "project/sourced_program.h"

#include <cctype>
#include <cstddef>
#include <map>
#include <utility>

#include "common/text.h"
#include "common/text_file.h"
#include "isa/instruction_set.h"
#include "project/line_operand.h"

namespace corvane::project {

namespace fs = std::filesystem;

namespace {

SourcedProgram EmptyProgram(int programWords) {
    const auto size = static_cast<std::size_t>(programWords);
    SourcedProgram result;
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

// Calls place(line, index of the line, address) for each line that makes a word of the program; of
// lines with the same address the last one counts.
template <typename Place>
void ForEachWord(const assembler::Assembly& assembly, int programWords, Place place) {
    for (std::size_t i = 0; i < assembly.lines.size(); ++i) {
        const assembler::AsmLine& line = assembly.lines[i];
        if (line.opcode && line.address < programWords) {
            place(line, i, static_cast<std::size_t>(line.address));
        }
    }
}

void AddWord(const assembler::AsmLine& line, std::size_t address, bool isNamed,
             check::Program& program) {
    program.words[address] = static_cast<std::uint16_t>(*line.opcode);
    program.isProgrammed[address] = true;
    program.operands[address].reset();
    if (isNamed && IsName(line.operand1)) {
        program.operands[address] = {line.operand1, line.value1};
    }
}

// The lines of the files that a .cod file names; an empty text for what cannot be read.
class SourceTexts {
  public:
    explicit SourceTexts(fs::path folder) : folder_(std::move(folder)) {}

    std::string Line(const std::string& file, int number) {
        const auto [found, isNew] = lines_.try_emplace(file);
        if (isNew) {
            if (const auto text = common::ReadTextFile(folder_ / file)) {
                for (const std::string_view line : common::SplitLines(*text)) {
                    found->second.emplace_back(line);
                }
            }
        }
        const auto index = static_cast<std::size_t>(number - 1);
        return index < found->second.size() ? found->second[index] : "";
    }

  private:
    fs::path folder_;
    std::map<std::string, std::vector<std::string>> lines_;
};

int WordOrErased(const check::Program& program, std::size_t address) {
    return program.isProgrammed[address] ? program.words[address] : kErasedWord;
}

}  // namespace

SourcedProgram FromImage(const loader::Program& image) {
    SourcedProgram result = EmptyProgram(static_cast<int>(image.words.size()));
    result.program.words = image.words;
    result.program.isProgrammed = image.isWritten;
    return result;
}

SourcedProgram FromAssembly(const assembler::Assembly& assembly, std::string_view text,
                            const std::string& file, int programWords) {
    SourcedProgram result = EmptyProgram(programWords);
    const std::vector<std::string_view> texts = common::SplitLines(text);
    ForEachWord(
        assembly, programWords,
        [&](const assembler::AsmLine& line, std::size_t index, std::size_t address) {
            AddWord(line, address, true, result.program);
            result.lines[address] = {file, static_cast<int>(index) + 1, std::string(texts[index])};
        });
    return result;
}

SourcedProgram FromCompiledAssembly(const assembler::Assembly& assembly,
                                    const std::vector<int>& sourceLines, std::string_view text,
                                    const std::string& file, int programWords) {
    SourcedProgram result = EmptyProgram(programWords);
    const std::vector<std::string_view> texts = common::SplitLines(text);
    ForEachWord(assembly, programWords,
                [&](const assembler::AsmLine& line, std::size_t index, std::size_t address) {
                    AddWord(line, address, NamesLabel(*line.opcode), result.program);
                    const int number = index < sourceLines.size() ? sourceLines[index] : 0;
                    if (number > 0 && std::cmp_less_equal(number, texts.size())) {
                        result.lines[address] = {
                            file, number, std::string(texts[static_cast<std::size_t>(number - 1)])};
                    }
                });
    return result;
}

SourcedProgram FromCod(const CodFile& cod, const fs::path& folder, int programWords,
                       const std::function<std::string(const std::string& file)>& shownName) {
    SourcedProgram result = EmptyProgram(programWords);
    std::map<std::string, int, std::less<>> values;
    for (const CodSymbol& symbol : cod.symbols) {
        values.emplace(symbol.name, static_cast<int>(symbol.value));
    }
    const NameLookup lookUp = [&values](std::string_view name) {
        const auto found = values.find(name);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    };
    SourceTexts texts(folder);
    for (std::size_t address = 0; address < result.program.words.size(); ++address) {
        if (!cod.words[address]) {
            continue;
        }
        result.program.words[address] = *cod.words[address];
        result.program.isProgrammed[address] = true;
        if (const std::optional<CodLine>& line = cod.lines[address]) {
            const std::string& file = cod.files[static_cast<std::size_t>(line->file)];
            const std::string text = texts.Line(file, line->line);
            result.lines[address] = {shownName(file), line->line, text};
            if (auto operand =
                    ReadLineOperand(text, *cod.words[address], static_cast<int>(address), lookUp)) {
                result.program.operands[address] = {std::move(operand->name), operand->value};
            }
        }
    }
    return result;
}

bool Belongs(const CodFile& cod, const loader::Program& image) {
    for (std::size_t address = 0; address < image.words.size(); ++address) {
        const int word = image.isWritten[address] ? image.words[address] : kErasedWord;
        if (cod.words[address].value_or(kErasedWord) != word) {
            return false;
        }
    }
    return true;
}

bool HaveSameWords(const check::Program& first, const check::Program& second) {
    for (std::size_t address = 0; address < first.words.size(); ++address) {
        if (WordOrErased(first, address) != WordOrErased(second, address)) {
            return false;
        }
    }
    return true;
}

}  // namespace corvane::project
