#include "basic/translation.h"

#include <string>
#include <variant>

#include "basic/statements/translate.h"

namespace corvane::basic {

using common::Status;

namespace {

// Jumps and calls reach the page that PCLATH selects, which the code never changes.
constexpr int kPageWords = 2048;

void WriteLineHead(Translation& translation, const Line& line) {
    std::string comment = "; " + std::to_string(translation.lineNumber) + ": ";
    if (!line.label.empty()) {
        comment.append(line.label).append(": ");
    }
    translation.code.Line(comment.append(line.text));
    if (!line.label.empty()) {
        translation.code.LabelLine(line.generatedLabel);
    }
}

// The first pass counts declarations without a label only.
void WarnOfUncounted(Translation& translation, const Line& line) {
    const auto* const declaration = std::get_if<Declaration>(&line.statement);
    if (declaration != nullptr && !line.label.empty()) {
        translation.Warn(
            "The declaration of '" + std::string(declaration->name) +
            "' follows a label and is not counted; other variables may get its memory.");
    }
}

Status TranslateLine(Translation& translation, const Line& line) {
    WriteLineHead(translation, line);
    WarnOfUncounted(translation, line);
    Status status = std::visit(
        [&](const auto& statement) { return Translate(translation, statement); }, line.statement);
    translation.code.SelectBank(0);
    if (translation.code.TakeBankLineAfterSkip()) {
        translation.Warn(
            "The bits are in different banks and a bank selection follows a skip; "
            "the statement will not work.");
    }
    return status;
}

Status CheckAllClosed(const OpenBlocks& open) {
    if (!open.whiles.empty()) {
        return Status::Failure("Wend is missing.");
    }
    if (!open.fors.empty()) {
        return Status::Failure("Next is missing.");
    }
    return open.ifs.empty() ? Status::Success() : Status::Failure("Endif is missing.");
}

}  // namespace

Status TranslateLines(Translation& translation, const std::vector<Line>& lines,
                      const common::ProgressCallback& progress) {
    for (const Line& line : lines) {
        ++translation.lineNumber;
        translation.code.BeginSourceLine(translation.lineNumber);
        if (progress) {
            progress("Performing pass 2.", translation.lineNumber);
        }
        if (Status status = TranslateLine(translation, line); !status) {
            return status;
        }
        WarnOfLimits(translation);
    }
    ++translation.lineNumber;
    return CheckAllClosed(translation.open);
}

void WarnOfLimits(Translation& translation) {
    Limits& limits = translation.limits;
    if (!limits.exceedsPage && translation.code.ProgramWords() > kPageWords) {
        limits.exceedsPage = true;
        translation.Warn(
            "The program exceeds 2048 words from this line on; jumps and calls reach only the "
            "first 2048.");
    }
    if (!limits.repeatsLabels && translation.labels.HasWrapped()) {
        limits.repeatsLabels = true;
        translation.Warn("The program needs more than 9999 labels from this line on; they repeat.");
    }
}

}  // namespace corvane::basic
