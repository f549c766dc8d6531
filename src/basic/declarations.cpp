#include "basic/declarations.h"

#include <algorithm>
#include <cstddef>

namespace corvane::basic {

namespace {

constexpr int kBitsPerCell = 8;

constexpr int CellsForBits(int bits) {
    return (bits + kBitsPerCell - 1) / kBitsPerCell;
}

struct DeclaredCounts {
    int bits = 0;
    int cells = 0;  // of Bytes and Words

    void Count(BasicType type) {
        bits += type == BasicType::Bit ? 1 : 0;
        cells += type == BasicType::Byte ? 1 : 0;
        cells += type == BasicType::Word ? 2 : 0;
    }
};

// Takes the label off the front of a line whose first word ends in ":".
Problem TakeLabel(SourceLine& line, std::string_view firstWord, LabelGenerator& labels) {
    const std::string_view name = firstWord.substr(0, firstWord.size() - 1);
    if (!IsValidName(name)) {
        return kIncorrectLabelName;
    }
    line.userLabel = name;
    line.generatedLabel = labels.NewLabel();
    line.statement.erase(0, line.userLabel.size() + 2);
    return kNoProblem;
}

Problem ReadLine(SourceLine& line, const VariableTable& registers, DeclaredCounts& counts,
                 LabelGenerator& labels) {
    const std::optional<Words> words = SplitWords(line.statement);
    if (!words) {
        return "Line too long.";
    }
    if (const std::optional<BasicType> type = DeclaredType(*words)) {
        counts.Count(*type);
        return CheckDeclaredName((*words)[1], registers);
    }
    const std::string_view firstWord = (*words)[0];
    return firstWord.ends_with(':') ? TakeLabel(line, firstWord, labels) : kNoProblem;
}

}  // namespace

std::string LabelGenerator::NewLabel() {
    ++count_;
    const std::string digits = std::to_string(count_ % (kLastLabel + 1));
    return "L" + std::string(4 - digits.size(), '0') + digits;
}

std::optional<BasicType> DeclaredType(const Words& words) {
    if (Matches(words, {"Dim", kAnyWord, "As", "Bit"})) {
        return BasicType::Bit;
    }
    if (Matches(words, {"Dim", kAnyWord, "As", "Byte"})) {
        return BasicType::Byte;
    }
    if (Matches(words, {"Dim", kAnyWord, "As", "Word"})) {
        return BasicType::Word;
    }
    return std::nullopt;
}

Problem CheckDeclaredName(std::string_view name, const VariableTable& variables) {
    if (name.find_first_of("()") != std::string_view::npos) {
        return "Arrays are not supported.";
    }
    if (variables.Contains(name) || !IsValidName(name)) {
        return "Incorrect variable name.";
    }
    return kNoProblem;
}

common::Result<Declarations, common::Diagnostic> DeclarationPass(
    std::vector<SourceLine>& lines, const VariableTable& registers, int ramCells,
    LabelGenerator& labels, const common::ProgressCallback& progress) {
    using PassResult = common::Result<Declarations, common::Diagnostic>;
    DeclaredCounts counts;
    Declarations result;
    int lineNumber = 0;
    for (SourceLine& line : lines) {
        ++lineNumber;
        if (progress) {
            progress("Performing pass 1.", lineNumber);
        }
        Problem problem = ReadLine(line, registers, counts, labels);
        result.bitBytes = CellsForBits(counts.bits);
        if (!problem && result.bitBytes + counts.cells > ramCells - kScratchRegisters) {
            problem = kNotEnoughRam;
        }
        if (problem) {
            return PassResult::Failure({.line = lineNumber, .text = std::string(*problem)});
        }
        if (!line.userLabel.empty()) {
            result.lineLabels.emplace(line.userLabel, line.generatedLabel);
        }
    }
    return PassResult::Success(std::move(result));
}

RamPlacement::RamPlacement(std::span<const models::Gpr> cells, int bitBytes)
    : cells_(cells), nextCell_(kScratchRegisters + bitBytes) {}

std::optional<PlacedVariable> RamPlacement::Place(BasicType type) {
    const int bitIndex = bits_;
    const int cell =
        type == BasicType::Bit ? kScratchRegisters + bitIndex / kBitsPerCell : nextCell_;
    const int cellCount = type == BasicType::Word ? 2 : 1;
    const std::optional<int> first = AddressOf(cell);
    const std::optional<int> last = AddressOf(cell + cellCount - 1);
    if (!first || !last) {
        return std::nullopt;
    }
    if (type == BasicType::Bit) {
        ++bits_;
        return PlacedVariable{{type, *first, bitIndex % kBitsPerCell, 0, {}}, false};
    }
    nextCell_ += cellCount;
    return PlacedVariable{{type, *first, 0, 0, {}}, *last != *first + cellCount - 1};
}

std::optional<int> RamPlacement::AddressOf(int cell) const {
    const auto index = static_cast<std::size_t>(cell);
    return index < cells_.size() ? std::optional<int>(cells_[index].address) : std::nullopt;
}

}  // namespace corvane::basic
