// A byte of which some bits are known.
#pragma once

#include <cstdint>

namespace corvane::check {

struct KnownByte {
    std::uint8_t known = 0;  // the bits that are known
    std::uint8_t value = 0;  // their values; 0 where nothing is known

    bool operator==(const KnownByte&) const = default;
    constexpr bool IsComplete() const { return known == 0xFF; }
    constexpr bool CanBe(int other) const { return ((value ^ other) & known) == 0; }
};

// All bits are known.
constexpr KnownByte Known(int value) {
    return {0xFF, static_cast<std::uint8_t>(value)};
}

// Only the bits of a mask are.
constexpr KnownByte KnownBits(int known, int value) {
    return {static_cast<std::uint8_t>(known), static_cast<std::uint8_t>(value & known)};
}

// Of the byte only these bits.
constexpr KnownByte Bits(KnownByte byte, int bits) {
    return KnownBits(byte.known & bits, byte.value);
}

// A bit of the result is known when both bits are, or when one of them decides.
constexpr KnownByte And(KnownByte a, KnownByte b) {
    const int zeros = (a.known & ~a.value) | (b.known & ~b.value);
    return KnownBits(zeros | (a.known & b.known), a.value & b.value);
}
constexpr KnownByte Or(KnownByte a, KnownByte b) {
    return KnownBits(a.value | b.value | (a.known & b.known), a.value | b.value);
}
constexpr KnownByte Xor(KnownByte a, KnownByte b) {
    return KnownBits(a.known & b.known, a.value ^ b.value);
}
constexpr KnownByte Swapped(KnownByte a) {
    return KnownBits((a.known << 4) | (a.known >> 4), (a.value << 4) | (a.value >> 4));
}

// Nothing is known of a sum unless both numbers are.
constexpr KnownByte Plus(KnownByte a, KnownByte b) {
    return a.IsComplete() && b.IsComplete() ? Known(a.value + b.value) : KnownByte{};
}
constexpr KnownByte Minus(KnownByte a, KnownByte b) {
    return a.IsComplete() && b.IsComplete() ? Known(a.value - b.value) : KnownByte{};
}

}  // namespace corvane::check
