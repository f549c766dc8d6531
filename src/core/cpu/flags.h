// The flags of results. Data sheet: "STATUS Register".
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "core/cpu/core.h"

namespace corvane::core {

// C and Z of every sum of two bytes and a carry.
constexpr std::array<std::uint8_t, 512> CarryAndZeroOfSums() {
    std::array<std::uint8_t, 512> flags{};
    for (std::size_t sum = 0; sum < flags.size(); ++sum) {
        const int zero = (sum & 0xFF) == 0 ? status::kZ : 0;
        flags[sum] = static_cast<std::uint8_t>(zero | (sum > 0xFF ? status::kC : 0));
    }
    return flags;
}

inline constexpr std::array<std::uint8_t, 512> kCarryAndZero = CarryAndZeroOfSums();

// Z of a result of 8 bits; C and DC stay.
inline void SetZeroFlag(Core& core, int result) {
    SetStatusBits(core, status::kZ, kCarryAndZero[static_cast<std::size_t>(result)]);
}

// C, DC and Z of the sum of two bytes and perhaps a carry: 0..511. A carry out of bit 3 shows as a
// flipped bit 4.
inline void SetAddFlags(Core& core, int a, int b, int sum) {
    const int digitCarry = ((a ^ b ^ sum) >> 3) & status::kDc;
    SetStatusBits(core, status::kFlags, kCarryAndZero[static_cast<std::size_t>(sum)] | digitCarry);
}

// The low byte of a - b, with its flags: a - b is a + (255 - b) + 1, so that C and DC are set when
// there is no borrow.
inline int Subtract(Core& core, int a, int b) {
    const int complement = b ^ 0xFF;
    const int sum = a + complement + 1;
    SetAddFlags(core, a, complement, sum);
    return sum & 0xFF;
}

// What an operation makes of the value of a register or literal and of W; Z alone tells of it.
using Compute = int (*)(int f, int w);
constexpr int InclusiveOr(int f, int w) {
    return f | w;
}
constexpr int And(int f, int w) {
    return f & w;
}
constexpr int ExclusiveOr(int f, int w) {
    return f ^ w;
}

}  // namespace corvane::core
