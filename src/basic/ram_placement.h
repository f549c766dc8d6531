// Where the variables lie in RAM: Bits eight to a cell behind the scratch registers, then Bytes and
// Words.
#pragma once

#include <optional>
#include <span>

#include "basic/variables.h"
#include "models/description.h"

namespace corvane::basic {

// The first RAM cells belong to the generated code: R0L, R0H .. R4L, R4H.
constexpr int kScratchRegisters = 10;

// The variables that a program declares.
struct DeclaredCounts {
    int bits = 0;
    int bytes = 0;  // of Bytes and Words

    void Count(BasicType type);

    // RAM cells that hold the Bits, and cells of all variables.
    int BitCells() const;
    int Cells() const { return BitCells() + bytes; }
};

struct PlacedVariable {
    Variable variable;
    bool isSplit = false;  // the second cell of a Word is not the next address
};

// Gives cells to variables in the order of their declaration.
class RamPlacement {
  public:
    RamPlacement(std::span<const models::Gpr> cells, int bitCells);

    // Nothing when the RAM is exhausted.
    std::optional<PlacedVariable> Place(BasicType type);

  private:
    std::optional<int> AddressOf(int cell) const;

    std::span<const models::Gpr> cells_;
    int bits_ = 0;
    int nextCell_;  // for a Byte or Word
};

}  // namespace corvane::basic
