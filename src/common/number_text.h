// Texts of numbers and numbers of texts, as every listing, window and file of the system writes
// them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::common {

// Upper-case hexadecimal text of the value's low 8, 12 or 16 bits, always 2, 3 or 4 digits.
std::string Hex2(std::int64_t value);
std::string Hex3(std::int64_t value);
std::string Hex4(std::int64_t value);

// The same behind a lower-case "0x".
std::string PrefixedHex2(std::int64_t value);
std::string PrefixedHex3(std::int64_t value);

// Upper-case hexadecimal text without leading zeros; a negative value in 32-bit two's complement.
std::string HexText(std::int32_t value);

// Exactly 2, 3 or 4 upper-case hexadecimal digits; -1 for any other text.
int ParseHex2(std::string_view text);
int ParseHex3(std::string_view text);
int ParseHex4(std::string_view text);

// Exactly sixteen characters 0 or 1, bit 15 first; -1 for any other text.
int ParseBinary16(std::string_view text);

// The low 14 bits (program words) or 13 bits (stack entries), most significant bit first.
std::string Binary14(std::int64_t value);
std::string Binary13(std::int64_t value);

// The number syntax of sources and predefined symbols: 0X and up to four hexadecimal digits, % and
// up to sixteen binary digits, or canonical decimal, after leading zeros are dropped. The text must
// be in upper case already. The value is 0..65535; nothing else is a number.
std::optional<int> ParseNumber(std::string_view text);

// The Intel HEX checksum over a text of hexadecimal pairs: two's complement of the pairs' sum as
// two digits. An odd last character is ignored; a pair that is no number counts as -1.
std::string RecordChecksum(std::string_view pairs);

}  // namespace corvane::common
