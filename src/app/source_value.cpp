#include "app/source_value.h"

#include <algorithm>
#include <array>

#include "common/number_text.h"
#include "common/text.h"
#include "inspect/expression.h"
#include "isa/instruction_set.h"

namespace corvane::app {

namespace {

bool IsOfName(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

// The word that holds this place or ends there.
std::string_view WordAt(std::string_view line, std::size_t place) {
    std::size_t begin = std::min(place, line.size());
    std::size_t end = begin;
    while (begin > 0 && IsOfName(line[begin - 1])) {
        --begin;
    }
    while (end < line.size() && IsOfName(line[end])) {
        ++end;
    }
    return line.substr(begin, end - begin);
}

// "STATUS" of "LABEL: BSF STATUS,"; empty when no bit instruction stands there.
std::string_view RegisterOfBit(std::string_view before) {
    before = common::TrimRight(before);
    if (!before.ends_with(',')) {
        return {};
    }
    before = common::TrimRight(before.substr(0, before.size() - 1));
    const std::string_view name = WordAt(before, before.size());
    before = common::TrimRight(before.substr(0, before.size() - name.size()));
    const isa::Instruction* instruction =
        isa::FindMnemonic(common::ToUpper(WordAt(before, before.size())));
    return instruction != nullptr && instruction->form == isa::OperandForm::RegisterBit
               ? name
               : std::string_view();
}

}  // namespace

std::string NameAt(std::string_view line, std::size_t column, project::ProgramKind kind) {
    const bool isBasic = kind == project::ProgramKind::Basic;
    if (line.find(isBasic ? '\'' : ';') <= column) {
        return "";
    }
    const std::string_view word = WordAt(line, column);
    if (word.empty()) {
        return "";
    }
    const std::string_view before =
        line.substr(0, static_cast<std::size_t>(word.data() - line.data()));
    const bool isBit = before.ends_with('.');
    const std::string_view owner =
        isBit ? WordAt(before, before.size() - 1) : RegisterOfBit(before);
    if (!owner.empty()) {
        return std::string(owner) + "." + std::string(word);
    }
    return isBit || (word[0] >= '0' && word[0] <= '9') ? "" : std::string(word);
}

std::string ValueText(const std::string& name, const inspect::Names& names,
                      const core::Processor& processor) {
    const auto expression = inspect::ParseExpression(name, {.names = names, .clock = {}});
    if (name.empty() || !expression) {
        return "";
    }
    const inspect::Measurements nothingMeasured;
    const std::int64_t value = inspect::Evaluate(*expression, {processor, nothingMeasured}).value;
    std::string text = name + " = " + std::to_string(value);
    const bool isOneBit = name.find('.') != std::string::npos;
    const bool isByte = !expression->quantities.empty() && value <= 0xFF &&
                        expression->quantities[0].kind != inspect::QuantityKind::CellPair;
    return isOneBit
               ? text
               : text + (isByte ? " (0x" + common::Hex2(value) : " (0x" + common::Hex4(value)) +
                     ")";
}

}  // namespace corvane::app
