// The first pass: declarations are counted, so that every variable has its place before any is
// used, and line labels are collected.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "basic/compiler.h"
#include "basic/source_lines.h"
#include "basic/symbols.h"
#include "common/progress.h"
#include "common/result.h"
#include "models/description.h"

namespace corvane::basic {

// The first RAM cells belong to the generated code: R0L, R0H .. R4L, R4H.
constexpr int kScratchRegisters = 10;

// Makes "L0001", "L0002" and so on; after "L9999" they begin again with "L0000".
class LabelGenerator {
  public:
    std::string NewLabel();
    bool HasWrapped() const { return count_ > kLastLabel; }

  private:
    static constexpr int kLastLabel = 9999;
    int count_ = 0;
};

// Generated labels by user label; of a label that several lines bear, the first line's.
using LineLabels = std::unordered_map<std::string_view, std::string_view>;

// What the first pass finds.
struct Declarations {
    int bitBytes = 0;  // RAM cells that hold the Bits
    LineLabels lineLabels;
};

// The type that a statement declares a variable of; nothing if it is no declaration.
std::optional<BasicType> DeclaredType(const Words& words);

// The check of a declared name; names that the table contains cannot be declared.
Problem CheckDeclaredName(std::string_view name, const VariableTable& variables);

// Takes the labels off the lines and counts the declarations. The names in the result point into
// the lines.
common::Result<Declarations, common::Diagnostic> DeclarationPass(
    std::vector<SourceLine>& lines, const VariableTable& registers, int ramCells,
    LabelGenerator& labels, const common::ProgressCallback& progress);

struct PlacedVariable {
    Operand variable;
    bool isSplit = false;  // the second cell of a Word is not the next address
};

// Gives RAM cells to variables in the order of their declaration: Bits eight to a cell behind the
// scratch registers, then Bytes and Words.
class RamPlacement {
  public:
    RamPlacement(std::span<const models::Gpr> cells, int bitBytes);

    // Nothing when the RAM is exhausted.
    std::optional<PlacedVariable> Place(BasicType type);

  private:
    std::optional<int> AddressOf(int cell) const;

    std::span<const models::Gpr> cells_;
    int bits_ = 0;
    int nextCell_;  // for a Byte or Word
};

}  // namespace corvane::basic
