// Decimal fractions as a person types them and as settings and messages show them. The point is a
// point whatever the locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane::common {

// The number at the beginning of the text, behind blanks: sign, digits, point, exponent. 0 when
// there is none or when no double holds it.
double LeadingNumber(std::string_view text);

// The nearest whole number, halves to even; nothing when an int does not hold it.
std::optional<int> RoundToInt(double value);

// The shortest text without exponent that reads back as the same value: "4", "3.579545", "0.1".
std::string DecimalText(float value);

}  // namespace corvane::common
