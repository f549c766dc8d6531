#include "basic/variables.h"

#include <algorithm>

#include "basic/messages.h"
#include "common/number_text.h"
#include "common/text.h"

namespace corvane::basic {

namespace {

bool IsSmallLetter(char c) {
    return c == '_' || (c >= 'a' && c <= 'z');
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

int LargestConstant(BasicType type) {
    switch (type) {
        case BasicType::Bit:
            return 1;
        case BasicType::Byte:
            return 0xFF;
        case BasicType::Word:
            break;
    }
    return 0xFFFF;
}

std::optional<int> ReadConstant(std::string_view word, BasicType type) {
    const std::string text = common::ToUpper(word);
    if (type == BasicType::Bit && (text == "TRUE" || text == "FALSE")) {
        return text == "TRUE" ? 1 : 0;
    }
    const std::optional<int> value = common::ParseNumber(text);
    return value && *value <= LargestConstant(type) ? value : std::nullopt;
}

// The part of a variable that an extension names.
std::optional<Variable> PartOf(const Variable& whole, std::string_view extension) {
    const bool isBit = extension.size() == 1 && extension[0] >= '0' && extension[0] <= '7';
    if (whole.type == BasicType::Byte && isBit) {
        return Variable{BasicType::Bit, whole.address, extension[0] - '0'};
    }
    if (whole.type == BasicType::Word && (extension == "LB" || extension == "HB")) {
        return Variable{BasicType::Byte, whole.address + (extension == "HB" ? 1 : 0)};
    }
    return std::nullopt;
}

}  // namespace

Register LowByte(const Variable& variable) {
    return {variable.address};
}

Register HighByte(const Variable& variable) {
    return {variable.address + 1};
}

ByteOperand LowByte(const Operand& operand) {
    if (const auto* constant = std::get_if<Constant>(&operand)) {
        return Literal{constant->value & 0xFF};
    }
    return LowByte(std::get<Variable>(operand));
}

ByteOperand HighByte(const Operand& operand) {
    if (const auto* constant = std::get_if<Constant>(&operand)) {
        return Literal{constant->value >> 8};
    }
    return HighByte(std::get<Variable>(operand));
}

common::Result<Operand> ReadOperand(const std::optional<Variable>& named, std::string_view word,
                                    BasicType typeOfConstant) {
    using OperandResult = common::Result<Operand>;
    if (named) {
        return OperandResult::Success(*named);
    }
    const std::optional<int> value = ReadConstant(word, typeOfConstant);
    return value ? OperandResult::Success(Constant{*value})
                 : OperandResult::Failure(kIncorrectArgument);
}

bool IsValidName(std::string_view name) {
    return !name.empty() && IsSmallLetter(name.front()) &&
           std::all_of(name.begin(), name.end(),
                       [](char c) { return IsSmallLetter(c) || IsDigit(c); });
}

VariableTable::VariableTable(const std::vector<models::PredefinedSymbol>& registers) {
    for (const models::PredefinedSymbol& symbol : registers) {
        Add(symbol.name, {BasicType::Byte, symbol.value});
    }
}

std::optional<Variable> VariableTable::Find(std::string_view reference) const {
    const std::size_t dot = reference.find('.');
    const auto entry = entries_.find(reference.substr(0, dot));
    if (entry == entries_.end()) {
        return std::nullopt;
    }
    return dot == std::string_view::npos ? entry->second
                                         : PartOf(entry->second, reference.substr(dot + 1));
}

}  // namespace corvane::basic
