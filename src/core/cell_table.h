// Which cells of data memory do more than hold a value, and which peripheral they belong to.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/peripheral.h"
#include "models/description.h"

namespace corvane::core {

// Stands for INDF where cells are named: the cell depends on FSR.
constexpr std::size_t kIndirectCell = models::kDataMemorySize;

class CellTable {
  public:
    struct Entry {
        CellAccess access;
        std::size_t owner = 0;  // the peripheral's place in the list
    };

    // The cell (0..511) belongs to the peripheral whose turn it is. Of two claims the later holds.
    void Claim(std::size_t cell, const CellAccess& access) {
        const bool readEffect = access.read != nullptr || access.followsTime;
        const bool writeEffect =
            readEffect || access.write != nullptr || access.asksForLook || access.actsAtOnce;
        entries_[cell] = {access, turn_};
        effects_[cell] = static_cast<std::uint8_t>((readEffect ? kReadEffect : 0) |
                                                   (writeEffect ? kWriteEffect : 0));
    }

    // A cell whose effects the instructions know themselves.
    void ClaimForInstructions(std::size_t cell, int effects) {
        entries_[cell] = {};
        effects_[cell] = static_cast<std::uint8_t>(effects);
    }

    // Who claims next.
    void SetTurn(std::size_t peripheral) { turn_ = peripheral; }

    // Bits of CellEffect; the cell may be kIndirectCell.
    std::uint8_t EffectsOf(std::size_t cell) const { return effects_[cell]; }

    // Of a cell that was claimed.
    const Entry& EntryOf(std::size_t cell) const { return entries_[cell]; }

  private:
    std::array<Entry, models::kDataMemorySize + 1> entries_{};
    std::array<std::uint8_t, models::kDataMemorySize + 1> effects_{};
    std::size_t turn_ = 0;
};

}  // namespace corvane::core
