#include "asm/notes.h"

#include <algorithm>
#include <optional>

#include "common/number_text.h"
#include "common/text.h"

namespace corvane::assembler {

namespace {

// The number as it is written here, if it is one.
std::optional<std::string> AsWrittenHere(std::string_view prefix, std::string_view digits) {
    std::string text = std::string(prefix) + std::string(digits);
    return common::ParseNumber(common::ToUpper(text)) ? std::optional(std::move(text))
                                                      : std::nullopt;
}

// H'20', D'10' and B'0101', 20H and 0FH, .10: how other assemblers write numbers.
std::optional<std::string> ForeignNumber(std::string_view operand) {
    constexpr std::string_view kHex = "0x";
    if (operand.size() > 3 && operand[1] == '\'' && operand.back() == '\'') {
        const std::string_view digits = operand.substr(2, operand.size() - 3);
        switch (operand.front()) {
            case 'H':
                return AsWrittenHere(kHex, digits);
            case 'D':
                return AsWrittenHere("", digits);
            case 'B':
                return AsWrittenHere("%", digits);
            default:
                return std::nullopt;
        }
    }
    if (operand.starts_with('.')) {
        return AsWrittenHere("", operand.substr(1));
    }
    return operand.ends_with('H') ? AsWrittenHere(kHex, operand.substr(0, operand.size() - 1))
                                  : std::nullopt;
}

}  // namespace

std::string Quoted(std::string_view text) {
    std::string quoted = "'" + std::string(text) + "'";
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' '; };
    std::ranges::replace_if(quoted, isControl, '?');
    return quoted;
}

std::string UnknownOperandNote(std::string_view operand) {
    const std::optional<std::string> number = ForeignNumber(operand);
    return Quoted(operand) + (number ? " is no number here; write " + *number + "."
                                     : " is no number and no defined name.");
}

std::string TooLargeNote(std::string_view operand, int limit) {
    return Quoted(operand) + " is above " + std::to_string(limit - 1) + ", the largest value here.";
}

}  // namespace corvane::assembler
