#include "loader/intel_hex.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "common/number_text.h"
#include "common/text.h"

namespace corvane::loader {

namespace {

using Error = std::string_view;  // empty when there is none
constexpr Error kNoError;

constexpr std::size_t kShortestRecord = 11;  // ":", count, address, type and checksum
constexpr int kLargestWord = 0x3FFF;
constexpr std::int64_t kLargestProgramMemory = 0x2000;  // words; the program counter has 13 bits

constexpr int kDataRecord = 0x00;
constexpr int kEndRecord = 0x01;
constexpr int kExtendedLinearAddressRecord = 0x04;

// The fields of a line; a number is -1 when its characters are no upper-case hexadecimal digits.
struct Record {
    int byteCount;
    int address;  // in bytes
    int type;
    std::string_view data;
};

struct Reader {
    Program program;
    std::int64_t segment = 0;  // upper half of the 32-bit byte address
    bool ended = false;
};

Error CheckLine(std::string_view line) {
    if (!line.starts_with(':')) {
        return "The record does not begin with ':' simbol.";
    }
    if (line.size() < kShortestRecord) {
        return "The record is too short.";
    }
    const std::string_view checksum = line.substr(line.size() - 2);
    const std::string_view summed = line.substr(1, line.size() - 3);
    if (common::RecordChecksum(summed) != checksum) {
        return "Invalid 'checksum' field in the record.";
    }
    return kNoError;
}

Record SplitLine(std::string_view line) {
    return {.byteCount = common::ParseHex2(line.substr(1, 2)),
            .address = common::ParseHex4(line.substr(3, 4)),
            .type = common::ParseHex2(line.substr(7, 2)),
            .data = line.substr(9, line.size() - kShortestRecord)};
}

Error CheckDataRecord(const Record& record) {
    if (record.byteCount < 0) {
        return "Invalid 'number of bytes' field in the record.";
    }
    if (record.address < 0) {
        return "Invalid 'address' field in the record.";
    }
    if (record.byteCount % 2 != 0) {
        return "Field 'number of bytes' in the record must contain an even value.";
    }
    if (record.address % 2 != 0) {
        return "Field 'address' in the record must contain an even value.";
    }
    if (record.data.size() != 2 * static_cast<std::size_t>(record.byteCount)) {
        return "The record does not contain the specified number of bytes.";
    }
    return kNoError;
}

// The word in four digits of a record, which has the low byte first; -1 when they are no digits.
int WordOf(std::string_view digits) {
    const int low = common::ParseHex2(digits.substr(0, 2));
    const int high = common::ParseHex2(digits.substr(2, 2));
    return low < 0 || high < 0 ? -1 : 256 * high + low;
}

Error ReadDataRecord(const Record& record, Reader& reader) {
    if (record.data.empty()) {
        return kNoError;
    }
    if (const Error error = CheckDataRecord(record); !error.empty()) {
        return error;
    }
    Program& program = reader.program;
    const std::int64_t start = reader.segment * 0x8000 + record.address / 2;
    const std::int64_t end = start + record.byteCount / 2;
    // ID locations, configuration word and EEPROM image lie beyond program memory.
    if (end > static_cast<std::int64_t>(program.words.size())) {
        const auto size = static_cast<std::int64_t>(program.words.size());
        const std::int64_t beyond = std::min(end, kLargestProgramMemory) - std::max(start, size);
        program.skippedWords += static_cast<int>(std::max<std::int64_t>(beyond, 0));
        return kNoError;
    }
    program.loadedWords = std::max(program.loadedWords, static_cast<int>(end));
    std::string_view digits = record.data;
    for (auto address = static_cast<std::size_t>(start); !digits.empty(); ++address) {
        const int word = WordOf(digits);
        if (word < 0 || word > kLargestWord) {
            return "Invalid data byte in the record.";
        }
        program.words[address] = static_cast<std::uint16_t>(word);
        program.isWritten[address] = true;
        digits.remove_prefix(4);
    }
    return kNoError;
}

Error ReadExtendedLinearAddress(const Record& record, Reader& reader) {
    const int segment = common::ParseHex4(record.data);
    if (segment < 0) {
        return "Invalid '04 type' record.";
    }
    reader.segment = segment;
    return kNoError;
}

Error ReadLine(std::string_view line, Reader& reader) {
    if (const Error error = CheckLine(line); !error.empty()) {
        return error;
    }
    const Record record = SplitLine(line);
    switch (record.type) {
        case kDataRecord:
            return ReadDataRecord(record, reader);
        case kEndRecord:
            reader.ended = true;
            return kNoError;
        case kExtendedLinearAddressRecord:
            return ReadExtendedLinearAddress(record, reader);
        default:
            return "Invalid 'record type' field in the record.";
    }
}

// Thousands of 1024 words in at most four characters, cut and not rounded: "1", ".976", "1.46".
std::string KiloText(int words) {
    constexpr std::int64_t kTenDecimals = 10'000'000'000;  // 1/1024 has exactly ten
    const std::int64_t fraction = words % 1024 * (kTenDecimals / 1024);
    std::string decimals = std::to_string(kTenDecimals + fraction).substr(1);
    decimals.erase(decimals.find_last_not_of('0') + 1);
    std::string text = words < 1024 ? "" : std::to_string(words / 1024);
    if (!decimals.empty()) {
        text += "." + decimals;
    }
    return text.empty() ? "0" : text.substr(0, 4);
}

}  // namespace

common::Result<Program, HexError> ReadIntelHex(std::string_view text, int programWords) {
    using ReadResult = common::Result<Program, HexError>;
    Reader reader;
    reader.program.words.resize(static_cast<std::size_t>(programWords));
    reader.program.isWritten.resize(static_cast<std::size_t>(programWords));
    for (int lineNumber = 1; !text.empty() && !reader.ended; ++lineNumber) {
        const std::string_view line = common::TakeLine(text);
        if (line.empty()) {
            continue;
        }
        if (const Error error = ReadLine(line, reader); !error.empty()) {
            return ReadResult::Failure({lineNumber, std::string(error)});
        }
    }
    return ReadResult::Success(std::move(reader.program));
}

Program ProgramOf(std::span<const std::uint16_t> words, int programWords) {
    const auto size = static_cast<std::size_t>(programWords);
    const std::size_t loaded = std::min(words.size(), size);
    Program program;
    program.words.assign(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(loaded));
    program.words.resize(size);
    program.isWritten.assign(loaded, true);
    program.isWritten.resize(size);
    program.loadedWords = static_cast<int>(loaded);
    program.skippedWords = static_cast<int>(words.size() - loaded);
    return program;
}

std::optional<std::string> SkippedWordsMessage(const Program& program, std::string_view modelName) {
    if (program.skippedWords == 0) {
        return std::nullopt;
    }
    const bool isOne = program.skippedWords == 1;
    return std::to_string(program.skippedWords) + (isOne ? " word at " : " words at ") +
           common::Hex4(static_cast<int>(program.words.size())) + " and beyond " +
           (isOne ? "does" : "do") + " not fit " + std::string(modelName) + " and " +
           (isOne ? "was" : "were") + " skipped.";
}

std::string LoadedMessage(int loadedWords) {
    return "Operation completed.\r\nTotal " + std::to_string(loadedWords) + " (" +
           KiloText(loadedWords) + "K) program words loaded.";
}

std::string HexErrorMessage(const HexError& error) {
    return "Input program file in Intel Hex Format contains errors.\r\nLine number " +
           std::to_string(error.lineNumber) + ": " + error.message;
}

}  // namespace corvane::loader
