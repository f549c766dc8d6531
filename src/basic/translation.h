// What one compilation knows while it translates the statements in order.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "basic/code_writer.h"
#include "basic/compiler.h"
#include "basic/declarations.h"
#include "basic/routines.h"
#include "basic/source_lines.h"
#include "basic/symbols.h"
#include "common/progress.h"
#include "models/catalogue.h"

namespace corvane::basic {

struct OpenWhile {
    std::string topLabel;
    std::string exitLabel;
    int exitBank = 0;  // selected when the condition's jump arrives at the exit
};

struct OpenIf {
    std::string falseLabel;
    int falseBank = 0;     // selected when the condition's jump arrives at falseLabel
    std::string endLabel;  // empty until Else
};

struct OpenFor {
    std::string topLabel;
    std::string exitLabel;
    Operand variable;
    Operand step;
    bool countsDown = false;
};

struct Translation {
    VariableTable variables;
    RamPlacement ram;
    LineLabels lineLabels;
    LabelGenerator labels;
    models::FamilyTraits eeprom;  // for the EEPROM register addresses
    int waitLoopCount;            // inner loops of a millisecond
    CodeWriter code{};
    RoutineFlags routines{};
    std::vector<OpenWhile> openWhiles{};
    std::vector<OpenIf> openIfs{};
    std::vector<OpenFor> openFors{};
    std::vector<common::Diagnostic> warnings{};
    int lineNumber = 0;  // of the line that is translated
    bool lineHasLabel = false;
    bool warnedOfLength = false;
    bool warnedOfLabels = false;

    void Warn(std::string text) {
        warnings.push_back(
            {.line = lineNumber, .severity = common::Severity::Warning, .text = std::move(text)});
    }
};

// The second pass: writes the code of all lines. After a problem, lineNumber is the line that has
// it; after success, one past the last line.
Problem TranslationPass(Translation& translation, const std::vector<SourceLine>& lines,
                        const common::ProgressCallback& progress);

// Warns once when the program has outgrown what its jumps or its label names can reach.
void WarnOfLimits(Translation& translation);

}  // namespace corvane::basic
