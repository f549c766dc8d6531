#include "cli/run/eeprom_file.h"

#include <cstddef>

#include "cli/diagnostics.h"
#include "common/number_text.h"
#include "common/text_file.h"
#include "loader/intel_hex.h"

namespace corvane::cli {

namespace {

constexpr int kEepromAddress = 0x2100;  // in words
constexpr int kLargestByte = 0xFF;

using EepromResult = common::Result<std::vector<std::uint8_t>>;

EepromResult TakeBytes(const std::string& file, const loader::Program& image,
                       const models::Model& model) {
    EepromResult bytes = EepromResult::Success({});
    for (std::size_t address = kEepromAddress; address < image.words.size(); ++address) {
        const std::size_t index = address - kEepromAddress;
        const bool isInside = index < static_cast<std::size_t>(model.eepromBytes);
        const std::uint16_t word = image.words[address];
        if (image.isWritten[address] && (!isInside || word > kLargestByte)) {
            return EepromResult::Failure(ErrorText(
                file, isInside
                          ? "The word " + common::Hex4(word) + " at " +
                                common::Hex4(static_cast<std::int64_t>(address)) + " is no byte."
                          : "The word at " + common::Hex4(static_cast<std::int64_t>(address)) +
                                " lies beyond the EEPROM of " + std::string(model.name) + "."));
        }
        if (isInside) {
            bytes->push_back(static_cast<std::uint8_t>(word));
        }
    }
    return bytes;
}

}  // namespace

EepromResult ReadEepromFile(const std::string& file, const models::Model& model) {
    constexpr int kWords = kEepromAddress + core::kMaxEepromBytes;
    const common::Result<std::string> text = common::ReadTextFile(file);
    if (!text) {
        return EepromResult::Failure(ErrorText(file, text.error));
    }
    const common::Result<loader::Program, loader::HexError> image =
        loader::ReadIntelHex(*text, kWords);
    return image ? TakeBytes(file, *image, model)
                 : EepromResult::Failure(
                       ErrorText(file, image.error.lineNumber, image.error.message));
}

std::string EepromHexText(const core::ProcessorState& state, const models::Model& model) {
    constexpr int kWordsOfRecord = 8;
    std::string text;
    for (int first = 0; first < model.eepromBytes; first += kWordsOfRecord) {
        std::string pairs =
            common::Hex2(2 * kWordsOfRecord) + common::Hex4(2 * (kEepromAddress + first)) + "00";
        for (int i = 0; i < kWordsOfRecord; ++i) {
            pairs += common::Hex2(state.eepromMemory[static_cast<std::size_t>(first + i)]) + "00";
        }
        text += ":" + pairs + common::RecordChecksum(pairs) + "\r\n";
    }
    return text + ":00000001FF\r\n";
}

}  // namespace corvane::cli
