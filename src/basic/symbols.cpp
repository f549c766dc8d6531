#include "basic/symbols.h"

#include <algorithm>
#include <optional>

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
        default:
            return 0xFFFF;
    }
}

// The part of a variable that an extension names.
Operand PartOf(const Operand& whole, std::string_view extension) {
    const bool isBit = extension.size() == 1 && extension[0] >= '0' && extension[0] <= '7';
    if (whole.type == BasicType::Byte && isBit) {
        return {BasicType::Bit, whole.address, extension[0] - '0', 0, {}};
    }
    if (whole.type == BasicType::Word && (extension == "LB" || extension == "HB")) {
        return {BasicType::Byte, whole.address + (extension == "HB" ? 1 : 0), 0, 0, {}};
    }
    return {};
}

}  // namespace

ByteOperand LowByte(const Operand& operand) {
    return operand.IsConstant() ? ByteOperand{true, operand.value & 0xFF}
                                : ByteOperand{false, operand.address};
}

ByteOperand HighByte(const Operand& operand) {
    return operand.IsConstant() ? ByteOperand{true, operand.value >> 8}
                                : ByteOperand{false, operand.address + 1};
}

Problem CheckConstant(Operand& operand, BasicType type) {
    const std::string text = common::ToUpper(operand.text);
    std::optional<int> value = common::ParseNumber(text);
    if (type == BasicType::Bit && (text == "TRUE" || text == "FALSE")) {
        value = text == "TRUE" ? 1 : 0;
    }
    if (!value || *value > LargestConstant(type)) {
        return kIncorrectArgument;
    }
    operand.value = *value;
    return kNoProblem;
}

bool IsValidName(std::string_view name) {
    return !name.empty() && IsSmallLetter(name.front()) &&
           std::all_of(name.begin(), name.end(),
                       [](char c) { return IsSmallLetter(c) || IsDigit(c); });
}

VariableTable::VariableTable(const std::vector<models::PredefinedSymbol>& registers) {
    for (const models::PredefinedSymbol& symbol : registers) {
        Add(symbol.name, {BasicType::Byte, symbol.value, 0, 0, {}});
    }
}

Operand VariableTable::Find(std::string_view reference) const {
    const std::size_t dot = reference.find('.');
    const auto entry = entries_.find(reference.substr(0, dot));
    Operand operand;
    if (entry != entries_.end()) {
        operand = dot == std::string_view::npos ? entry->second
                                                : PartOf(entry->second, reference.substr(dot + 1));
    }
    operand.text = reference;
    return operand;
}

}  // namespace corvane::basic
