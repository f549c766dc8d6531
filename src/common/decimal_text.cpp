#include "common/decimal_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace corvane::common {

double LeadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    // A second sign, or a name such as "inf", is no number here.
    if (text.empty() || (text[0] != '.' && (text[0] < '0' || text[0] > '9'))) {
        return 0;
    }
    double value = 0;
    const std::from_chars_result result =
        std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc()) {
        return 0;
    }
    return isNegative ? -value : value;
}

std::optional<int> RoundToInt(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<int>::min() &&
          rounded <= std::numeric_limits<int>::max())) {
        return std::nullopt;
    }
    return static_cast<int>(rounded);
}

std::string DecimalText(float value) {
    std::array<char, 64> buffer;
    const std::to_chars_result result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                                      value, std::chars_format::fixed);
    return {buffer.data(), result.ptr};
}

}  // namespace corvane::common
