#include "inspect/clock.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <numeric>

#include "common/text.h"

namespace corvane::inspect {

namespace {

// Products of a number of clock cycles, a frequency and a power of ten.
__extension__ using Wide = __int128;

constexpr std::int64_t kBillion = 1'000'000'000;
constexpr std::int64_t kMillion = 1'000'000;
constexpr int kMostDecimals = 18;

struct Unit {
    std::string_view name;
    std::int64_t clocks;  // of a unit that counts the oscillator, else 0
    std::int64_t perSecond;
};

constexpr std::array<Unit, 6> kUnits = {{{"S", 0, 1},
                                         {"MS", 0, 1000},
                                         {"US", 0, kMillion},
                                         {"NS", 0, kBillion},
                                         {"CYCLES", 4, 0},
                                         {"CLOCKS", 1, 0}}};

const Unit* FindUnit(std::string_view word) {
    const std::string upper = common::ToUpper(word);
    const auto* unit = std::find_if(kUnits.begin(), kUnits.end(),
                                    [&](const Unit& row) { return row.name == upper; });
    return unit == kUnits.end() ? nullptr : unit;
}

Wide PowerOfTen(int exponent) {
    Wide power = 1;
    for (; exponent > 0; --exponent) {
        power *= 10;
    }
    return power;
}

Wide DividedHalvesUp(Wide dividend, Wide divisor) {
    return (2 * dividend + divisor) / (2 * divisor);
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The exponent at the front of a text, "e-3"; 0 without one.
int ExponentOf(std::string_view text) {
    int exponent = 0;
    if (!text.empty() && (text.front() == 'e' || text.front() == 'E')) {
        text.remove_prefix(text.substr(1).starts_with('+') ? 2 : 1);
        std::from_chars(text.data(), text.data() + text.size(), exponent);
    }
    return std::clamp(exponent, -kMostDecimals, kMostDecimals);
}

// scaled / 10^decimals without trailing zeros.
std::string DecimalOf(Wide scaled, int decimals) {
    const Wide scale = PowerOfTen(decimals);
    std::string text = std::to_string(static_cast<std::int64_t>(scaled / scale));
    std::string fraction =
        std::to_string(static_cast<std::int64_t>(scale + scaled % scale)).substr(1);
    fraction.erase(fraction.find_last_not_of('0') + 1);
    return fraction.empty() ? text : text + "." + fraction;
}

}  // namespace

std::optional<Decimal> TakeDecimal(std::string_view& text) {
    Decimal number = {0, 0};
    bool behindPoint = false;
    bool hasDigits = false;
    std::size_t i = 0;
    for (; i < text.size() && (IsDigit(text[i]) || (text[i] == '.' && !behindPoint)); ++i) {
        if (text[i] == '.') {
            behindPoint = true;
            continue;
        }
        const int digit = text[i] - '0';
        if (number.digits > (std::numeric_limits<std::int64_t>::max() - digit) / 10 ||
            number.decimals == kMostDecimals) {
            return std::nullopt;
        }
        number.digits = number.digits * 10 + digit;
        number.decimals += behindPoint ? 1 : 0;
        hasDigits = true;
    }
    text.remove_prefix(i);
    return hasDigits ? std::optional(number) : std::nullopt;
}

std::optional<Clock> ReadClock(std::string_view megahertz) {
    std::string_view rest = megahertz;
    const std::optional<Decimal> number = TakeDecimal(rest);
    if (!number) {
        return std::nullopt;
    }
    const int shift = 9 + ExponentOf(rest) - number->decimals;  // to a numerator over 10^9
    Wide numerator = number->digits;
    numerator = shift >= 0 ? std::min(numerator, PowerOfTen(18)) * PowerOfTen(std::min(shift, 18))
                           : numerator / PowerOfTen(-shift);
    numerator = std::clamp(numerator, Wide{1}, PowerOfTen(18));
    const auto exact = static_cast<std::int64_t>(numerator);
    const std::int64_t common = std::gcd(exact, kBillion);
    return Clock{exact / common, kBillion / common};
}

bool IsUnit(std::string_view word) {
    return FindUnit(word) != nullptr;
}

std::optional<std::int64_t> ClocksIn(const Decimal& number, std::string_view unitName,
                                     const Clock& clock) {
    const Unit* unit = FindUnit(unitName);
    if (unit == nullptr) {
        return std::nullopt;
    }
    Wide dividend = unit->clocks;
    Wide divisor = PowerOfTen(number.decimals);
    if (unit->clocks == 0) {
        dividend = Wide{clock.numerator} * kMillion;
        divisor *= Wide{clock.denominator} * unit->perSecond;
    }
    // Twice the product must fit 127 bits: digits have 63, what they are multiplied with 80.
    const Wide limit = std::numeric_limits<std::int64_t>::max();
    const Wide most = (Wide{1} << 125) / dividend;
    if (number.digits > most) {
        return std::nullopt;
    }
    const Wide clocks = DividedHalvesUp(number.digits * dividend, divisor);
    return clocks <= limit ? std::optional(static_cast<std::int64_t>(clocks)) : std::nullopt;
}

std::optional<std::int64_t> ReadDuration(std::string_view text, const Clock& clock) {
    const std::optional<Decimal> number = TakeDecimal(text);
    return number ? ClocksIn(*number, common::Trim(text), clock) : std::nullopt;
}

std::int64_t ClocksInHalfPeriodsDown(std::int64_t halves, std::int64_t frequency,
                                     const Clock& clock) {
    return static_cast<std::int64_t>(Wide{halves} * clock.numerator * kMillion /
                                     (Wide{2} * frequency * clock.denominator));
}

std::int64_t ClocksInHalfPeriodsUp(std::int64_t halves, std::int64_t frequency,
                                   const Clock& clock) {
    const Wide divisor = Wide{2} * frequency * clock.denominator;
    return static_cast<std::int64_t>((Wide{halves} * clock.numerator * kMillion + divisor - 1) /
                                     divisor);
}

std::string TimeText(std::int64_t clocks, const Clock& clock) {
    const Wide dividend = Wide{clocks} * clock.denominator;  // in units of 1 / (numerator MHz)
    const Wide divisor = Wide{clock.numerator} * kMillion;   // seconds are dividend / divisor
    const auto* unit = std::find_if(kUnits.begin(), kUnits.begin() + 3, [&](const Unit& row) {
        return dividend * row.perSecond >= divisor;
    });
    return DecimalOf(DividedHalvesUp(dividend * unit->perSecond * 1000, divisor), 3) + " " +
           common::ToLower(unit->name);
}

std::string SecondsText(std::int64_t clocks, const Clock& clock) {
    constexpr int kDecimals = 9;
    return DecimalOf(DividedHalvesUp(Wide{clocks} * clock.denominator * kBillion,
                                     Wide{clock.numerator} * kMillion),
                     kDecimals);
}

std::int64_t Picoseconds(std::int64_t clocks, const Clock& clock) {
    return static_cast<std::int64_t>(
        DividedHalvesUp(Wide{clocks} * clock.denominator * kMillion, clock.numerator));
}

}  // namespace corvane::inspect
