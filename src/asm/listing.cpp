#include "asm/listing.h"

#include <algorithm>
#include <cstddef>

#include "common/number_text.h"
#include "common/text.h"

namespace corvane::assembler {

namespace {

constexpr std::string_view kRule = "---------------------------------------------\r\n";
constexpr int kHeadingLines = 4;
constexpr std::string_view kGap = "    ";
constexpr std::string_view kErrorMark = " Error: ";
constexpr std::size_t kDigits = 4;  // of a number, an address and a word
constexpr std::size_t kMessageWidth = 60;

// The last four decimal digits, with leading zeros.
std::string LineNumberText(std::size_t lineNumber) {
    const std::string digits = "000" + std::to_string(lineNumber);
    return digits.substr(digits.size() - kDigits);
}

void AppendLine(std::string& text, const std::string& number, const AsmLine& line) {
    text += number;
    text += kGap;
    text += common::Hex4(line.address);
    text += kGap;
    text += line.opcode ? common::Hex4(*line.opcode) : std::string(kGap);
    text += kGap;
    text += common::TrimRight(line.source);
    text += "\r\n";
}

void AppendError(std::string& text, const std::string& number, std::string_view message) {
    text += number;
    text += kErrorMark;
    text += message.substr(0, kMessageWidth);
    text.append(kMessageWidth - std::min(message.size(), kMessageWidth), ' ');
    text += "\r\n";
}

// No shorter than the listing. A text that grows by itself holds up to twice what it needs.
std::size_t LongestListing(const Assembly& assembly) {
    constexpr std::size_t kHeadingAndEnd = 5 * kRule.size();
    constexpr std::size_t kLineEnd = 2;
    constexpr std::size_t kFields = 3 * (kDigits + kGap.size()) + kLineEnd;
    constexpr std::size_t kErrorLine = kDigits + kErrorMark.size() + kMessageWidth + kLineEnd;
    std::size_t length = kHeadingAndEnd;
    for (const AsmLine& line : assembly.lines) {
        length += kFields + line.source.size() + (line.hasError ? kErrorLine : 0);
    }
    return length;
}

}  // namespace

std::string ListingText(const Assembly& assembly) {
    std::string text;
    text.reserve(LongestListing(assembly));
    text += kRule;
    text += "PIC ASSEMBLER LISTING\r\n";
    text += "Line    Address Opcode  Instruction\r\n";
    text += kRule;
    std::size_t lineNumber = 0;
    for (const AsmLine& line : assembly.lines) {
        const std::string number = LineNumberText(++lineNumber);
        AppendLine(text, number, line);
        if (line.hasError) {
            AppendError(text, number, line.errorMessage);
        }
    }
    text += kRule;
    text += "Number of errors = " + std::to_string(assembly.errorCount) + "\r\n";
    return text;
}

std::string ProgramLine(std::string_view listingLine) {
    if (listingLine.substr(std::min(listingLine.size(), kDigits)).starts_with(kGap)) {
        listingLine.remove_prefix(kDigits + kGap.size());
    }
    std::string line(listingLine);
    const bool hasAddress = common::ParseHex4(line.substr(0, kDigits)) >= 0;
    const std::size_t wordColumn = std::min(line.size(), kDigits + kGap.size());
    if (hasAddress && common::ParseHex4(line.substr(wordColumn, kDigits)) < 0) {
        line.replace(0, kDigits, kGap);
    }
    return line;
}

std::vector<ListedError> ErrorsInListing(const Assembly& assembly) {
    std::vector<ListedError> errors;
    int listingLine = kHeadingLines;
    int sourceLine = 0;
    for (const AsmLine& line : assembly.lines) {
        ++listingLine;
        ++sourceLine;
        if (line.hasError) {
            errors.push_back({++listingLine, sourceLine});
        }
    }
    return errors;
}

}  // namespace corvane::assembler
