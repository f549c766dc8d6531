#include "basic/ram_placement.h"

#include <cstddef>

namespace corvane::basic {

namespace {

constexpr int kBitsPerCell = 8;

}  // namespace

void DeclaredCounts::Count(BasicType type) {
    bits += type == BasicType::Bit ? 1 : 0;
    bytes += type == BasicType::Byte ? 1 : 0;
    bytes += type == BasicType::Word ? 2 : 0;
}

int DeclaredCounts::BitCells() const {
    return (bits + kBitsPerCell - 1) / kBitsPerCell;
}

RamPlacement::RamPlacement(std::span<const models::Gpr> cells, int bitCells)
    : cells_(cells), nextCell_(kScratchRegisters + bitCells) {}

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
        return PlacedVariable{{type, *first, bitIndex % kBitsPerCell}};
    }
    nextCell_ += cellCount;
    return PlacedVariable{{type, *first}, *last != *first + cellCount - 1};
}

std::optional<int> RamPlacement::AddressOf(int cell) const {
    const auto index = static_cast<std::size_t>(cell);
    return index < cells_.size() ? std::optional<int>(cells_[index].address) : std::nullopt;
}

}  // namespace corvane::basic
