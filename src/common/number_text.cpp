#include "common/number_text.h"

#include <charconv>
#include <cstddef>

namespace corvane::common {

namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

std::string FixedHex(std::int64_t value, std::size_t digits) {
    std::string text(digits, '0');
    auto bits = static_cast<std::uint64_t>(value);
    for (std::size_t i = digits; i-- > 0; bits >>= 4) {
        text[i] = kHexDigits[bits & 0xF];
    }
    return text;
}

std::string FixedBinary(std::int64_t value, std::size_t digits) {
    std::string text(digits, '0');
    auto bits = static_cast<std::uint64_t>(value);
    for (std::size_t i = digits; i-- > 0; bits >>= 1) {
        text[i] = (bits & 1) != 0 ? '1' : '0';
    }
    return text;
}

int HexDigitValue(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

int ParseFixedHex(std::string_view text, std::size_t digits) {
    if (text.size() != digits) {
        return -1;
    }
    int value = 0;
    for (const char c : text) {
        const int digit = HexDigitValue(c);
        if (digit < 0) {
            return -1;
        }
        value = value * 16 + digit;
    }
    return value;
}

// One digit always stays, so that "0" and "000" remain numbers.
std::string_view DropLeadingZeros(std::string_view text) {
    while (text.size() > 1 && text.front() == '0') {
        text.remove_prefix(1);
    }
    return text;
}

std::optional<int> ParsePadded(std::string_view digits, std::size_t width,
                               int (*parse)(std::string_view)) {
    digits = DropLeadingZeros(digits);
    if (digits.empty() || digits.size() > width) {
        return std::nullopt;
    }
    const std::string padded = std::string(width - digits.size(), '0').append(digits);
    const int value = parse(padded);
    return value < 0 ? std::nullopt : std::optional<int>(value);
}

std::optional<int> ParseDecimal(std::string_view text) {
    text = DropLeadingZeros(text);
    if (text.empty() || text.front() < '0' || text.front() > '9') {
        return std::nullopt;
    }
    int value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || stop != end || value > 0xFFFF) {
        return std::nullopt;
    }
    return value;
}

}  // namespace

std::string Hex2(std::int64_t value) {
    return FixedHex(value, 2);
}
std::string Hex3(std::int64_t value) {
    return FixedHex(value, 3);
}
std::string Hex4(std::int64_t value) {
    return FixedHex(value, 4);
}

std::string PrefixedHex2(std::int64_t value) {
    return "0x" + Hex2(value);
}
std::string PrefixedHex3(std::int64_t value) {
    return "0x" + Hex3(value);
}

std::string HexText(std::int32_t value) {
    return std::string(DropLeadingZeros(FixedHex(value, 8)));
}

int ParseHex2(std::string_view text) {
    return ParseFixedHex(text, 2);
}
int ParseHex3(std::string_view text) {
    return ParseFixedHex(text, 3);
}
int ParseHex4(std::string_view text) {
    return ParseFixedHex(text, 4);
}

int ParseBinary16(std::string_view text) {
    if (text.size() != 16) {
        return -1;
    }
    int value = 0;
    for (const char c : text) {
        if (c != '0' && c != '1') {
            return -1;
        }
        value = value * 2 + (c - '0');
    }
    return value;
}

std::string Binary14(std::int64_t value) {
    return FixedBinary(value, 14);
}
std::string Binary13(std::int64_t value) {
    return FixedBinary(value, 13);
}

std::optional<int> ParseNumber(std::string_view text) {
    if (text.starts_with("0X")) {
        return ParsePadded(text.substr(2), 4, ParseHex4);
    }
    if (text.starts_with("%")) {
        return ParsePadded(text.substr(1), 16, ParseBinary16);
    }
    return ParseDecimal(text);
}

std::string RecordChecksum(std::string_view pairs) {
    std::int64_t sum = 0;
    for (std::size_t i = 0; i + 1 < pairs.size(); i += 2) {
        sum += ParseHex2(pairs.substr(i, 2));
    }
    return Hex2(256 - sum % 256);
}

}  // namespace corvane::common
