#include "inspect/tokens.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace corvane::inspect {

namespace {

constexpr std::string_view kTooLarge = "The number has more than 63 bits.";
constexpr std::string_view kNoCharacter = "A character stands between two ' and is Latin-1.";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsNamePart(char c) {
    return c == '_' || IsDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// How many characters from the front are of a kind.
template <typename Predicate>
std::size_t Length(std::string_view text, Predicate isPart) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isPart) -
                                    text.begin());
}

Token Bad(std::size_t position, std::string_view message) {
    return {TokenKind::Bad, message, position, {0, 0}};
}

// The digits behind a prefix of a number in base 16 or 2.
Token ReadBased(std::string_view rest, std::size_t position, std::size_t prefix, int base) {
    const std::size_t length = prefix + Length(rest.substr(prefix), IsNamePart);
    std::int64_t value = 0;
    const char* const end = rest.data() + length;
    const auto [stop, error] = std::from_chars(rest.data() + prefix, end, value, base);
    if (error == std::errc::result_out_of_range) {
        return Bad(position, kTooLarge);
    }
    if (error != std::errc() || stop != end) {
        return Bad(position,
                   base == 2 ? "This is no binary number." : "This is no hexadecimal number.");
    }
    return {TokenKind::Number, rest.substr(0, length), position, {value, 0}};
}

// Digits, perhaps with a point and more of them; "1..5" is no fraction.
Token ReadDecimal(std::string_view rest, std::size_t position) {
    std::size_t length = Length(rest, IsDigit);
    if (rest.substr(length).starts_with('.')) {
        const std::size_t decimals = Length(rest.substr(length + 1), IsDigit);
        length += decimals > 0 ? decimals + 1 : 0;
    }
    std::string_view text = rest.substr(0, length);
    const std::optional<Decimal> number = TakeDecimal(text);
    return number ? Token{TokenKind::Number, rest.substr(0, length), position, *number}
                  : Bad(position, kTooLarge);
}

// 'A'; a character above 7Fh has two bytes in UTF-8.
Token ReadCharacter(std::string_view rest, std::size_t position) {
    const auto byte = [rest](std::size_t i) {
        return i < rest.size() ? static_cast<unsigned char>(rest[i]) : 0U;
    };
    const bool hasTwoBytes = (byte(1) == 0xC2 || byte(1) == 0xC3) && (byte(2) & 0xC0U) == 0x80;
    const std::size_t length = hasTwoBytes ? 4 : 3;
    if (rest.size() < length || rest[length - 1] != '\'') {
        return Bad(position, kNoCharacter);
    }
    const std::int64_t value = hasTwoBytes ? (byte(1) & 0x03U) << 6U | (byte(2) & 0x3FU) : byte(1);
    return {TokenKind::Number, rest.substr(0, length), position, {value, 0}};
}

Token ReadSign(std::string_view rest, std::size_t position) {
    constexpr auto kLongSigns =
        std::to_array<std::string_view>({"==", "!=", "<=", ">=", "<<", ">>", ".."});
    constexpr std::string_view kShortSigns = "<>|^&+-*/%~@.()[]";
    for (const std::string_view sign : kLongSigns) {
        if (rest.starts_with(sign)) {
            return {TokenKind::Sign, rest.substr(0, 2), position, {0, 0}};
        }
    }
    if (kShortSigns.find(rest.front()) != std::string_view::npos) {
        return {TokenKind::Sign, rest.substr(0, 1), position, {0, 0}};
    }
    return Bad(position, rest.front() == '=' ? "Equality is written ==."
                                             : "This character has no meaning here.");
}

}  // namespace

Token ReadToken(std::string_view text, std::size_t position, bool operandExpected) {
    position = std::min(text.find_first_not_of(" \t", position), text.size());
    const std::string_view rest = text.substr(position);
    if (rest.empty()) {
        return {TokenKind::End, rest, position, {0, 0}};
    }
    if (rest.starts_with("0x") || rest.starts_with("0X")) {
        return ReadBased(rest, position, 2, 16);
    }
    if (rest.front() == '%' && operandExpected) {
        return ReadBased(rest, position, 1, 2);
    }
    if (IsDigit(rest.front())) {
        return ReadDecimal(rest, position);
    }
    if (rest.front() == '\'') {
        return ReadCharacter(rest, position);
    }
    if (IsNamePart(rest.front())) {
        return {TokenKind::Name, rest.substr(0, Length(rest, IsNamePart)), position, {0, 0}};
    }
    return ReadSign(rest, position);
}

}  // namespace corvane::inspect
