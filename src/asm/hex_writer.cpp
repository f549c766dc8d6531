#include "asm/hex_writer.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "common/number_text.h"

namespace corvane::assembler {

namespace {

constexpr std::size_t kWordsPerRecord = 8;
constexpr std::size_t kBytesPerWord = 2;
constexpr std::size_t kConfigurationAddress = 0x2007;
constexpr std::string_view kEndRecord = ":00000001FF\r\n";

void AppendRecord(std::string& text, std::size_t address, std::span<const std::uint16_t> words) {
    std::string pairs = common::Hex2(static_cast<std::int64_t>(words.size() * kBytesPerWord)) +
                        common::Hex4(static_cast<std::int64_t>(address * kBytesPerWord)) + "00";
    for (const std::uint16_t word : words) {
        pairs += common::Hex2(word);
        pairs += common::Hex2(word >> 8);
    }
    text += ':';
    text += pairs;
    text += common::RecordChecksum(pairs);
    text += "\r\n";
}

}  // namespace

std::string IntelHexText(std::span<const std::uint16_t> words, int configurationWord) {
    std::string text;
    for (std::size_t address = 0; address < words.size(); address += kWordsPerRecord) {
        const std::size_t count = std::min(kWordsPerRecord, words.size() - address);
        AppendRecord(text, address, words.subspan(address, count));
    }
    const auto configuration = static_cast<std::uint16_t>(configurationWord);
    AppendRecord(text, kConfigurationAddress, {&configuration, 1});
    text += kEndRecord;
    return text;
}

}  // namespace corvane::assembler
