#include "project/line_operand.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

#include "common/number_text.h"
#include "common/text.h"
#include "isa/instruction_set.h"

namespace corvane::project {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsOfName(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '.' || c == '?' ||
           c == '@';
}

std::string_view SkipBlanks(std::string_view text) {
    return text.substr(
        std::min(static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsBlank) -
                                          text.begin()),
                 text.size()));
}

template <typename Condition>
std::string_view TakeWhile(std::string_view& text, Condition applies) {
    const auto end = std::find_if_not(text.begin(), text.end(), applies);
    const std::string_view taken = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(taken.size());
    return taken;
}

// What follows the label of a line: a label begins in the first column or ends with ":".
std::string_view WithoutLabel(std::string_view line) {
    std::string_view rest = line;
    if (!line.empty() && !IsBlank(line.front())) {
        TakeWhile(rest, [](char c) { return IsOfName(c); });
        return rest.starts_with(':') ? rest.substr(1) : rest;
    }
    rest = SkipBlanks(line);
    std::string_view behind = rest;
    TakeWhile(behind, [](char c) { return IsOfName(c); });
    return behind.starts_with(':') ? behind.substr(1) : rest;
}

// The row of an instruction's word, or nullptr.
const isa::Instruction* RowOf(int word) {
    const isa::Operation operation = isa::Classify(word);
    return operation == isa::Operation::Unrecognized ? nullptr : &isa::InstructionOf(operation);
}

// The part of the word that a register's or a label's address is reduced to.
std::optional<int> AddressField(const isa::Instruction& row, int value) {
    switch (row.form) {
        case isa::OperandForm::Register:
        case isa::OperandForm::RegisterDestination:
        case isa::OperandForm::RegisterBit:
            return isa::RegisterField(value);
        case isa::OperandForm::Address11:
            return isa::Address11Field(value);
        default:
            return std::nullopt;
    }
}

// "+1", "- 2" or nothing; nothing else may follow the name.
std::optional<int> ReadOffset(std::string_view text) {
    text = common::Trim(SkipBlanks(text));
    if (text.empty()) {
        return 0;
    }
    const char sign = text.front();
    const std::optional<int> number =
        common::ParseNumber(common::ToUpper(SkipBlanks(text.substr(1))));
    if ((sign != '+' && sign != '-') || !number) {
        return std::nullopt;
    }
    return sign == '+' ? *number : -*number;
}

}  // namespace

std::optional<LineOperand> ReadLineOperand(std::string_view line, int word, int address,
                                           const NameLookup& lookUp) {
    const isa::Instruction* row = RowOf(word);
    std::string_view rest = SkipBlanks(WithoutLabel(line));
    const std::string_view mnemonic =
        TakeWhile(rest, [](char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; });
    if (row == nullptr || common::ToUpper(mnemonic) != row->mnemonic || rest.empty() ||
        !IsBlank(rest.front())) {
        return std::nullopt;
    }
    const std::string_view operand = SkipBlanks(rest.substr(0, rest.find_first_of(",;")));
    std::string_view offsetText = operand;
    const bool isHere = operand.starts_with('$');
    const std::string_view name = TakeWhile(offsetText, IsOfName);
    if (isHere) {
        offsetText.remove_prefix(1);
    }
    if (name.empty() && !isHere) {
        return std::nullopt;
    }
    const std::optional<int> base = isHere ? std::optional(address) : lookUp(name);
    const std::optional<int> offset = ReadOffset(offsetText);
    if (!base || !offset) {
        return std::nullopt;
    }
    const int value = *base + *offset;
    const std::optional<int> wanted = AddressField(*row, word);
    if (!wanted || value < 0 || AddressField(*row, value) != wanted) {
        return std::nullopt;
    }
    return LineOperand{std::string(common::TrimRight(operand)), value};
}

}  // namespace corvane::project
