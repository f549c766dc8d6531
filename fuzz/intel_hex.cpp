// Any bytes are a HEX file: the reader must end, and what it returns must agree with itself.
#include "loader/intel_hex.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/number_text.h"
#include "common/text.h"
#include "require.h"

// libFuzzer's own mutation, which the mutator below begins with.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

using corvane::loader::Program;
using corvane::loader::ReadIntelHex;

constexpr std::size_t kShortestRecord = 11;

std::string HexFileOf(const Program& program) {
    std::string text;
    for (int address = 0; address < program.loadedWords; ++address) {
        const int word = program.words[static_cast<std::size_t>(address)];
        const std::string pairs = "02" + corvane::common::Hex4(std::int64_t{2} * address) + "00" +
                                  corvane::common::Hex2(word) + corvane::common::Hex2(word >> 8);
        text += ":" + pairs + corvane::common::RecordChecksum(pairs) + "\r";
    }
    return text + ":00000001FF";
}

void CheckProgram(const Program& program, int programWords) {
    Require(std::cmp_equal(program.words.size(), programWords));
    Require(program.loadedWords >= 0 && program.loadedWords <= programWords);
    Require(std::all_of(program.words.begin(), program.words.end(),
                        [](std::uint16_t word) { return word <= 0x3FFF; }));
    Require(std::all_of(program.words.begin() + program.loadedWords, program.words.end(),
                        [](std::uint16_t word) { return word == 0; }));
    const auto again = ReadIntelHex(HexFileOf(program), programWords);
    Require(again && again->words == program.words && again->loadedWords == program.loadedWords);
}

// The lines before the error make a program; with the faulty line they make the same error.
void CheckError(std::string_view text, const corvane::loader::HexError& error, int programWords) {
    const std::vector<std::string_view> lines = corvane::common::SplitLines(text);
    Require(!error.message.empty() && error.lineNumber >= 1);
    Require(std::cmp_less_equal(error.lineNumber, lines.size()));
    std::string before;
    for (int i = 0; i < error.lineNumber - 1; ++i) {
        before.append(lines[static_cast<std::size_t>(i)]).append("\n");
    }
    Require(static_cast<bool>(ReadIntelHex(before, programWords)));
    const auto faulty = static_cast<std::size_t>(error.lineNumber - 1);
    const auto again = ReadIntelHex(before.append(lines[faulty]), programWords);
    Require(!again && again.error.lineNumber == error.lineNumber &&
            again.error.message == error.message);
}

// The text with the right checksum in each line that is long enough to have one.
std::string WithChecksums(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::string_view line = corvane::common::TakeLine(text);
        if (line.starts_with(':') && line.size() >= kShortestRecord) {
            const std::string_view pairs = line.substr(1, line.size() - 3);
            result.append(":").append(pairs).append(corvane::common::RecordChecksum(pairs));
        } else {
            result.append(line);
        }
        result.append(text.empty() ? "" : "\n");
    }
    return result;
}

}  // namespace

// Without it hardly any input would get beyond the checksum test.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned int seed) {
    size = LLVMFuzzerMutate(data, size, maxSize);
    if (seed % 4 == 0) {
        return size;
    }
    const std::string text =
        WithChecksums(std::string_view(reinterpret_cast<const char*>(data), size));
    std::copy(text.begin(), text.end(), data);
    return text.size();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const int programWords : {512, 8192}) {
        const auto program = ReadIntelHex(text, programWords);
        if (program) {
            CheckProgram(*program, programWords);
        } else {
            CheckError(text, program.error, programWords);
        }
    }
    return 0;
}
