// The second pass: what one compilation knows while it translates the statements in order.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "basic/code_writer.h"
#include "basic/program.h"
#include "basic/ram_placement.h"
#include "basic/routines.h"
#include "basic/variables.h"
#include "common/diagnostic.h"
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
    std::string_view name;  // of the running variable
    Variable variable;
    Operand step;
    bool countsDown;
};

// Blocks whose end is still to come. Those of one kind end in turn, whatever the others do.
struct OpenBlocks {
    std::vector<OpenWhile> whiles;
    std::vector<OpenIf> ifs;
    std::vector<OpenFor> fors;
};

// What the program has outgrown, which is told once.
struct Limits {
    bool exceedsPage = false;    // more words than its jumps and calls can reach
    bool repeatsLabels = false;  // more labels than there are names
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
    OpenBlocks open{};
    Limits limits{};
    std::vector<DeclaredVariable> declared{};
    std::vector<common::Diagnostic> warnings{};
    int lineNumber = 0;  // of the line that is translated

    void Warn(std::string text) {
        warnings.push_back(
            {.line = lineNumber, .severity = common::Severity::Warning, .text = std::move(text)});
    }
};

// Writes the code of all lines. After a failure, lineNumber is the line that has it; after success,
// one past the last line.
common::Status TranslateLines(Translation& translation, const std::vector<Line>& lines,
                              const common::ProgressCallback& progress);

// Warns of a limit that has been exceeded since the last call.
void WarnOfLimits(Translation& translation);

}  // namespace corvane::basic
