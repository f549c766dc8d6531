// Simulated time: oscillator clock cycles, and what they are in seconds. Everything is exact; the
// frequency is the decimal number that a person wrote.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::inspect {

// The oscillator frequency in MHz, as a fraction.
struct Clock {
    std::int64_t numerator = 4;  // 1 or more
    std::int64_t denominator = 1;
};

// The clock of a frequency in MHz above 0: "4", "3.579545", "32e-3". Nine decimals count, and 10^9
// MHz are the most. Nothing when the text does not begin with a number.
std::optional<Clock> ReadClock(std::string_view megahertz);

// A decimal number: digits / 10^decimals.
struct Decimal {
    std::int64_t digits;
    int decimals;  // 0..18
};

// Cuts digits, perhaps with a point among them, off the front of a text. Nothing when there are
// none, or more than 63 bits or 18 decimals hold.
std::optional<Decimal> TakeDecimal(std::string_view& text);

// True for ns, us, ms, s, cycles and clocks, in any case.
bool IsUnit(std::string_view word);

// Clock cycles in a number of a unit, halves away from 0: of time by the frequency, cycles are
// instruction cycles. Nothing when no 64 bits hold the result.
std::optional<std::int64_t> ClocksIn(const Decimal& number, std::string_view unit,
                                     const Clock& clock);

// A duration as a text of its own: "20ms", "1.5 us". Nothing for another text.
std::optional<std::int64_t> ReadDuration(std::string_view text, const Clock& clock);

// Whole clock cycles in halves / 2 periods of a frequency in Hz.
std::int64_t ClocksInHalfPeriodsDown(std::int64_t halves, std::int64_t frequency,
                                     const Clock& clock);
std::int64_t ClocksInHalfPeriodsUp(std::int64_t halves, std::int64_t frequency, const Clock& clock);

// "84 us", "30.205 ms": in the largest of s, ms, us and ns in which it is at least 1, with up to 3
// decimals and no trailing zeros.
std::string TimeText(std::int64_t clocks, const Clock& clock);

// "0.000084": in seconds, with up to 9 decimals and no trailing zeros.
std::string SecondsText(std::int64_t clocks, const Clock& clock);

// Rounded to a whole number, halves up.
std::int64_t Picoseconds(std::int64_t clocks, const Clock& clock);

}  // namespace corvane::inspect
