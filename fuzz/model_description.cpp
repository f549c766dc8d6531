// Any bytes are a description file: the reader must end, and what it returns must agree with the
// text.
#include "models/description.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/number_text.h"
#include "common/text.h"
#include "models/symbol_lines.h"
#include "require.h"

namespace {

using corvane::models::ModelDescription;
using corvane::models::ReadModelDescription;
using corvane::models::SymbolLine;
using Lines = std::vector<std::string_view>;

bool IsDataAddress(int address) {
    return address >= 0 && address < corvane::models::kDataMemorySize;
}

void CheckRegisters(const ModelDescription& description) {
    Require(
        std::all_of(description.addressMap.begin(), description.addressMap.end(), IsDataAddress));
    for (const corvane::models::Gpr& gpr : description.gprList) {
        Require(IsDataAddress(gpr.address));
        Require(gpr.label == corvane::common::Hex3(gpr.address) + "h");
    }
    Require(!description.sfrList.empty());
    for (const corvane::models::Sfr& sfr : description.sfrList) {
        Require(sfr.resetValue >= 0 && sfr.resetValue <= 0xFF);
        if (&sfr == &description.sfrList.back()) {
            Require(sfr.label == "TMR0 Prescaler");
            Require(sfr.address == corvane::models::kPrescalerAddress && sfr.resetValue == 0);
        } else {
            Require(IsDataAddress(sfr.address));
            Require(sfr.label.starts_with(corvane::common::Hex3(sfr.address) + "h  "));
        }
    }
}

void CheckSymbolLines(const std::vector<SymbolLine>& symbolLines, const Lines& lines) {
    int previous = 0;
    for (const SymbolLine& line : symbolLines) {
        Require(line.lineNumber > previous && std::cmp_less_equal(line.lineNumber, lines.size()));
        Require(line.text == lines[static_cast<std::size_t>(line.lineNumber - 1)]);
        previous = line.lineNumber;
    }
    const corvane::models::PredefinedSymbols result = corvane::models::ReadSymbolLines(symbolLines);
    Require(result.symbols.size() + result.badLines.size() <= symbolLines.size());
    for (const corvane::models::PredefinedSymbol& symbol : result.symbols) {
        Require(!symbol.name.empty() && symbol.name == corvane::common::ToUpper(symbol.name));
        Require(symbol.value >= 0 && symbol.value <= 0xFFFF);
    }
    for (const int badLine : result.badLines) {
        Require(std::any_of(symbolLines.begin(), symbolLines.end(),
                            [&](const SymbolLine& line) { return line.lineNumber == badLine; }));
    }
}

std::string JoinedLines(const Lines& lines, std::size_t count, std::string_view lineEnd) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text.append(lines[i]).append(lineEnd);
    }
    return text;
}

void CheckDescription(const ModelDescription& description, const Lines& lines) {
    CheckRegisters(description);
    CheckSymbolLines(description.asmSymbolLines, lines);
    CheckSymbolLines(description.basicSymbolLines, lines);
    const auto again = ReadModelDescription(JoinedLines(lines, lines.size(), "\r"));
    Require(again && again->addressMap == description.addressMap &&
            again->writeMask == description.writeMask &&
            again->gprList.size() == description.gprList.size() &&
            again->sfrList.size() == description.sfrList.size());
}

// The lines before the error make a description; the faulty one is the first that does not fit.
void CheckErrorLine(int errorLine, const Lines& lines) {
    Require(errorLine >= 1 && std::cmp_less_equal(errorLine, lines.size()));
    const auto faulty = static_cast<std::size_t>(errorLine);
    Require(static_cast<bool>(ReadModelDescription(JoinedLines(lines, faulty - 1, "\n"))));
    const auto again = ReadModelDescription(JoinedLines(lines, faulty, "\n"));
    Require(!again && again.error == errorLine);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const Lines lines = corvane::common::SplitLines(text);
    const auto description = ReadModelDescription(text);
    if (description) {
        CheckDescription(*description, lines);
    } else {
        CheckErrorLine(description.error, lines);
    }
    return 0;
}
