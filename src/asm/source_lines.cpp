#include "asm/source_lines.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

#include "asm/line_pass.h"
#include "asm/notes.h"
#include "asm/statement.h"
#include "common/number_text.h"
#include "common/text.h"

namespace corvane::assembler {

namespace {

constexpr std::size_t kSourceWidth = 100;
constexpr std::size_t kMnemonicWidth = 10;

// What is read of a line: upper case, tabs as blanks, without the comment. Leading blanks stay,
// because they tell a mnemonic from a label; only a constant's definition may be indented.
std::string TextToRead(std::string_view source) {
    std::string text = common::ToUpper(common::TrimRight(source));
    std::replace(text.begin(), text.end(), '\t', ' ');
    text.resize(std::min(text.find(';'), text.size()));
    if (text.find(" EQU ") != std::string::npos) {
        text.erase(0, text.find_first_not_of(' '));
    }
    return text;
}

bool BeginsLabel(std::string_view text) {
    return !text.empty() && (text.front() == '_' || (text.front() >= 'A' && text.front() <= 'Z'));
}

// Cuts the first word off the text and the blanks around what remains.
std::string_view TakeWord(std::string_view& text) {
    const std::string_view word = text.substr(0, text.find(' '));
    text = common::Trim(text.substr(word.size()));
    return word;
}

// False when the label is refused; then the rest of the line is not read.
bool ReadLabel(Assembly& assembly, AsmLine& line, SymbolTable& symbols, std::string_view label) {
    if (label.ends_with(':')) {
        label.remove_suffix(1);
    }
    if (label.size() > kNameWidth) {
        Report(assembly, line, "Labels can't be longer than 32 characters.");
        return false;
    }
    if (!symbols.Define(label)) {
        Report(assembly, line, "Duplicate label.",
               Quoted(label) + (symbols.IsPredefined(label)
                                    ? " is a predefined name of the microcontroller."
                                    : " is defined in an earlier line."));
        return false;
    }
    line.label = label;
    return true;
}

std::string_view OperandField(std::string_view text) {
    return common::TrimRight(common::Trim(text).substr(0, kNameWidth));
}

void ReadOperands(AsmLine& line, std::string_view text) {
    const std::size_t comma = text.find(',');
    line.operand1 = OperandField(text.substr(0, comma));
    if (comma != std::string_view::npos) {
        line.operand2 = OperandField(text.substr(comma + 1));
        line.hasTwoOperands = true;
    }
}

void ReadFields(Assembly& assembly, AsmLine& line, SymbolTable& symbols) {
    const std::string text = TextToRead(line.source);
    std::string_view rest = text;
    if (BeginsLabel(text)) {
        const std::string_view label = TakeWord(rest);
        if (!ReadLabel(assembly, line, symbols, label)) {
            return;
        }
    }
    rest = common::Trim(rest);
    line.mnemonic = TakeWord(rest).substr(0, kMnemonicWidth);
    ReadOperands(line, rest);
}

}  // namespace

std::vector<AsmLine> ReadLines(std::string_view source) {
    const std::vector<std::string_view> texts = common::SplitLines(source);
    std::vector<AsmLine> lines(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        lines[i].source = common::FirstCharacters(texts[i], kSourceWidth);
    }
    return lines;
}

void SplitFields(Assembly& assembly, SymbolTable& symbols,
                 const common::ProgressCallback& progress) {
    ForEachLine(assembly, "Performing pass 1.", progress,
                [&](AsmLine& line) { ReadFields(assembly, line, symbols); });
}

void ResolveEquates(Assembly& assembly, SymbolTable& symbols) {
    for (AsmLine& line : assembly.lines) {
        if (line.label.empty() || FindStatement(line.mnemonic).kind != StatementKind::Equ) {
            continue;
        }
        const std::optional<int> value = common::ParseNumber(line.operand1);
        if (value && line.operand2.empty()) {
            symbols.SetValue(line.label, *value);
        } else {
            Report(assembly, line, "Invalid argument of the EQU directive.",
                   value || line.operand1.empty() ? "" : Quoted(line.operand1) + " is no number.");
        }
    }
}

}  // namespace corvane::assembler
