#include "basic/program.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>
#include <variant>

#include "basic/messages.h"
#include "basic/words.h"

namespace corvane::basic {

namespace {

using common::Status;

// The label of a line whose first word ends in ":".
Status TakeLabel(Line& line, std::string_view firstWord, LabelGenerator& labels) {
    line.label = firstWord.substr(0, firstWord.size() - 1);
    if (!IsValidName(line.label)) {
        return Status::Failure(kIncorrectLabelName);
    }
    line.generatedLabel = labels.NewLabel();
    line.text.remove_prefix(std::min(firstWord.size() + 1, line.text.size()));
    return Status::Success();
}

Status ReadLine(Line& line, LabelGenerator& labels) {
    const std::optional<Words> words = SplitWords(line.text);
    if (!words) {
        return Status::Failure("Line too long.");
    }
    const std::string_view firstWord = (*words)[0];
    if (!firstWord.ends_with(':')) {
        line.statement = ReadStatement(*words);
        return Status::Success();
    }
    line.statement = ReadStatement(WithoutFirst(*words));
    return TakeLabel(line, firstWord, labels);
}

Status CountDeclaration(const Line& line, const VariableTable& registers, int ramCells,
                        DeclaredCounts& declared) {
    const auto* declaration = std::get_if<Declaration>(&line.statement);
    if (declaration != nullptr && line.label.empty()) {
        if (Status status = CheckDeclaredName(declaration->name, registers); !status) {
            return status;
        }
        declared.Count(declaration->type);
    }
    return declared.Cells() <= ramCells - kScratchRegisters ? Status::Success()
                                                            : Status::Failure(kNotEnoughRam);
}

}  // namespace

std::string LabelGenerator::NewLabel() {
    ++count_;
    const std::string digits = std::to_string(count_ % (kLastLabel + 1));
    return "L" + std::string(4 - digits.size(), '0') + digits;
}

common::Result<Program, common::Diagnostic> ReadProgram(
    const std::vector<std::string>& preparedLines, const VariableTable& registers, int ramCells,
    LabelGenerator& labels, const common::ProgressCallback& progress) {
    using ProgramResult = common::Result<Program, common::Diagnostic>;
    Program program;
    program.lines.reserve(preparedLines.size());
    int lineNumber = 0;
    for (const std::string& text : preparedLines) {
        ++lineNumber;
        if (progress) {
            progress("Performing pass 1.", lineNumber);
        }
        Line& line = program.lines.emplace_back();
        line.text = text;
        Status status = ReadLine(line, labels);
        if (status) {
            status = CountDeclaration(line, registers, ramCells, program.declared);
        }
        if (!status) {
            return ProgramResult::Failure({.line = lineNumber, .text = std::move(status.error)});
        }
        if (!line.label.empty()) {
            program.lineLabels.emplace(line.label, line.generatedLabel);
        }
    }
    return ProgramResult::Success(std::move(program));
}

common::Status CheckDeclaredName(std::string_view name, const VariableTable& variables) {
    if (name.find_first_of("()") != std::string_view::npos) {
        return Status::Failure("Arrays are not supported.");
    }
    if (variables.Contains(name) || !IsValidName(name)) {
        return Status::Failure("Incorrect variable name.");
    }
    return Status::Success();
}

}  // namespace corvane::basic
