#include "asm/line_coloring.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "common/text.h"
#include "isa/instruction_set.h"

namespace corvane::assembler {

namespace {

using isa::Operation;

constexpr std::array<Operation, isa::kInstructionCount> kInstructionOrder = {
    Operation::Addwf,  Operation::Andwf,  Operation::Clrf,  Operation::Clrw,   Operation::Comf,
    Operation::Decf,   Operation::Decfsz, Operation::Incf,  Operation::Incfsz, Operation::Iorwf,
    Operation::Movf,   Operation::Movwf,  Operation::Nop,   Operation::Rlf,    Operation::Rrf,
    Operation::Subwf,  Operation::Swapf,  Operation::Xorwf, Operation::Bcf,    Operation::Bsf,
    Operation::Btfsc,  Operation::Btfss,  Operation::Addlw, Operation::Andlw,  Operation::Call,
    Operation::Clrwdt, Operation::Goto,   Operation::Iorlw, Operation::Movlw,  Operation::Retfie,
    Operation::Retlw,  Operation::Return, Operation::Sleep, Operation::Sublw,  Operation::Xorlw,
};
constexpr std::array<std::string_view, 4> kDirectives = {"ORG", "EQU", "DW", "END"};

// Where the word stands between blanks or tabs, in a text that begins and ends with a blank.
std::optional<std::size_t> FindWord(const std::string& text, std::string_view word) {
    if (text.find(word) == std::string::npos) {
        return std::nullopt;
    }
    for (const char before : {' ', '\t'}) {
        for (const char after : {' ', '\t'}) {
            const std::size_t found = text.find(before + std::string(word) + after);
            if (found != std::string::npos) {
                return found + 1;
            }
        }
    }
    return std::nullopt;
}

std::optional<ColoredSpan> FindKeyword(std::string_view line) {
    const std::string text = " " + common::ToUpper(common::TrimRight(line)) + " ";
    const auto find = [&text](std::string_view keyword) -> std::optional<ColoredSpan> {
        const std::optional<std::size_t> found = FindWord(text, keyword);
        if (!found) {
            return std::nullopt;
        }
        return ColoredSpan{static_cast<int>(*found) - 1, static_cast<int>(keyword.size()),
                           TextColor::Keyword};
    };
    for (const Operation operation : kInstructionOrder) {
        if (const auto span = find(isa::InstructionOf(operation).mnemonic)) {
            return span;
        }
    }
    for (const std::string_view directive : kDirectives) {
        if (const auto span = find(directive)) {
            return span;
        }
    }
    return std::nullopt;
}

}  // namespace

std::vector<ColoredSpan> ColorLine(std::string_view line) {
    std::vector<ColoredSpan> spans;
    if (const auto keyword = FindKeyword(line)) {
        spans.push_back(*keyword);
    }
    if (const std::size_t comment = line.find(';'); comment != std::string_view::npos) {
        spans.push_back({static_cast<int>(comment), static_cast<int>(line.size() - comment),
                         TextColor::Comment});
    }
    return spans;
}

}  // namespace corvane::assembler
