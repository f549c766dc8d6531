// Any bytes are a source: the assembler must end, and what it returns must agree with itself.
#include "asm/assembler.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/text.h"
#include "require.h"

namespace {

using corvane::assembler::AsmLine;
using corvane::assembler::Assembly;

void CheckLines(const Assembly& assembly) {
    int highestAddress = -1;
    for (const AsmLine& line : assembly.lines) {
        Require(corvane::common::FirstCharacters(line.source, 100).size() == line.source.size());
        Require(line.label.size() <= 32 && line.mnemonic.size() <= 10 &&
                line.operand1.size() <= 32 && line.operand2.size() <= 32 &&
                line.errorMessage.size() <= 60);
        Require(line.hasError == !line.errorMessage.empty());
        if (line.opcode) {
            Require(!line.hasError && *line.opcode >= 0 && *line.opcode < 0x4000);
            Require(line.address >= 0 && line.address <= 0x7FFF);
            highestAddress = std::max(highestAddress, line.address);
        }
    }
    Require(assembly.words.size() <= static_cast<std::size_t>(highestAddress + 1));
    Require(assembly.words.empty() || assembly.words.back() != 0);
}

void CheckTexts(const Assembly& assembly) {
    const auto errorLines = std::count_if(assembly.lines.begin(), assembly.lines.end(),
                                          [](const AsmLine& line) { return line.hasError; });
    Require(assembly.errorCount >= errorLines);
    const auto listingLines = std::count(assembly.listing.begin(), assembly.listing.end(), '\n');
    Require(listingLines == static_cast<std::ptrdiff_t>(assembly.lines.size()) + errorLines + 6);
    Require(assembly.listing.ends_with(
        "\r\nNumber of errors = " + std::to_string(assembly.errorCount) + "\r\n"));
    Require(assembly.hex.ends_with(":02400E00F13F80\r\n:00000001FF\r\n"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::vector<corvane::models::PredefinedSymbol> kSymbols = {
        {"STATUS", 3}, {"TRISB", 0x86}, {"RP0", 5}, {"W", 0}, {"F", 1}};
    const std::string_view source(reinterpret_cast<const char*>(data), size);
    const Assembly assembly = corvane::assembler::Assemble(source, kSymbols, 0x3FF1);
    CheckLines(assembly);
    CheckTexts(assembly);
    return 0;
}
