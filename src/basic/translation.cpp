#include "basic/translation.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "basic/statements.h"

namespace corvane::basic {

namespace {

// Jumps and calls reach the page that PCLATH selects, which the code never changes.
constexpr int kPageWords = 2048;

struct StatementForm {
    bool (*matches)(const Words& words);
    Problem (*translate)(Translation& translation, const Words& words);
};

// In the order in which they are tried: some words match several forms.
constexpr auto kStatementForms = std::to_array<StatementForm>({
    {IsDeclaration, TranslateDeclaration},
    {IsSquareRoot, TranslateSquareRoot},
    {IsAssignment, TranslateAssignment},
    {IsArithmetic, TranslateArithmetic},
    {IsNegation, TranslateNegation},
    {IsBitLogic, TranslateBitLogic},
    {IsWhile, TranslateWhile},
    {IsWend, TranslateWend},
    {IsIf, TranslateIf},
    {IsElse, TranslateElse},
    {IsEndif, TranslateEndif},
    {IsFor, TranslateFor},
    {IsNext, TranslateNext},
    {IsGoto, TranslateGoto},
    {IsRead, TranslateRead},
    {IsWrite, TranslateWrite},
    {IsWaitMs, TranslateWaitMs},
});

Problem TranslateStatement(Translation& translation, const Words& words) {
    if (words.count == 0) {
        return kNoProblem;
    }
    const auto* const form =
        std::find_if(kStatementForms.begin(), kStatementForms.end(),
                     [&words](const StatementForm& row) { return row.matches(words); });
    return form == kStatementForms.end() ? Problem("Syntax error.")
                                         : form->translate(translation, words);
}

void WriteLineHead(Translation& translation, const SourceLine& line) {
    std::string comment = "; " + std::to_string(translation.lineNumber) + ": ";
    if (translation.lineHasLabel) {
        comment += line.userLabel + ": ";
    }
    translation.code.Line(comment + line.statement);
    if (translation.lineHasLabel) {
        translation.code.LabelLine(line.generatedLabel);
    }
}

Problem TranslateLine(Translation& translation, const SourceLine& line) {
    translation.lineHasLabel = !line.userLabel.empty();
    WriteLineHead(translation, line);
    const std::optional<Words> words = SplitWords(line.statement);
    const Problem problem = words ? TranslateStatement(translation, *words) : kNoProblem;
    translation.code.SelectBank(0);
    if (translation.code.TakeBankLineAfterSkip()) {
        translation.Warn(
            "The bits are in different banks and a bank selection follows a skip; "
            "the statement will not work.");
    }
    return problem;
}

Problem CheckAllClosed(const Translation& translation) {
    if (!translation.openWhiles.empty()) {
        return "Wend is missing.";
    }
    if (!translation.openFors.empty()) {
        return "Next is missing.";
    }
    return translation.openIfs.empty() ? kNoProblem : Problem("Endif is missing.");
}

}  // namespace

Problem TranslationPass(Translation& translation, const std::vector<SourceLine>& lines,
                        const common::ProgressCallback& progress) {
    for (const SourceLine& line : lines) {
        ++translation.lineNumber;
        if (progress) {
            progress("Performing pass 2.", translation.lineNumber);
        }
        if (const Problem problem = TranslateLine(translation, line)) {
            return problem;
        }
        WarnOfLimits(translation);
    }
    ++translation.lineNumber;
    return CheckAllClosed(translation);
}

void WarnOfLimits(Translation& translation) {
    if (!translation.warnedOfLength && translation.code.ProgramWords() > kPageWords) {
        translation.warnedOfLength = true;
        translation.Warn(
            "The program exceeds 2048 words from this line on; jumps and calls reach only the "
            "first "
            "2048.");
    }
    if (!translation.warnedOfLabels && translation.labels.HasWrapped()) {
        translation.warnedOfLabels = true;
        translation.Warn("The program needs more than 9999 labels from this line on; they repeat.");
    }
}

}  // namespace corvane::basic
