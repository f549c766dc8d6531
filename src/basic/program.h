// The first pass: every line is read into a statement, line labels are collected, and declarations
// are counted, so that every variable has its place before any is used.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "basic/ram_placement.h"
#include "basic/statements/statement.h"
#include "basic/variables.h"
#include "common/diagnostic.h"
#include "common/progress.h"
#include "common/result.h"

namespace corvane::basic {

// Makes "L0001", "L0002" and so on; after "L9999" they begin again with "L0000".
class LabelGenerator {
  public:
    std::string NewLabel();
    bool HasWrapped() const { return count_ > kLastLabel; }

  private:
    static constexpr int kLastLabel = 9999;
    int count_ = 0;
};

struct Line {
    std::string_view label;      // as written before the colon; empty for an unlabelled line
    std::string generatedLabel;  // "L0001" of a labelled line
    std::string_view text;       // of the statement, prepared
    Statement statement;
};

// Generated labels by user label; of a label that several lines bear, the first line's.
using LineLabels = std::unordered_map<std::string_view, std::string>;

struct Program {
    std::vector<Line> lines;
    LineLabels lineLabels;
    DeclaredCounts declared;  // on lines without a label
};

// Reads prepared lines, into which the program points.
common::Result<Program, common::Diagnostic> ReadProgram(
    const std::vector<std::string>& preparedLines, const VariableTable& registers, int ramCells,
    LabelGenerator& labels, const common::ProgressCallback& progress);

// The check of a declared name; names that the table contains cannot be declared.
common::Status CheckDeclaredName(std::string_view name, const VariableTable& variables);

}  // namespace corvane::basic
