#include "asm/assembler.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "asm/code_generation.h"
#include "asm/hex_writer.h"
#include "asm/listing.h"
#include "asm/source_lines.h"
#include "asm/symbol_table.h"
#include "common/number_text.h"

namespace corvane::assembler {

namespace {

std::vector<std::uint16_t> WordsOf(const std::vector<AsmLine>& lines) {
    std::vector<std::uint16_t> words;
    for (const AsmLine& line : lines) {
        if (line.opcode) {
            const auto address = static_cast<std::size_t>(line.address);
            words.resize(std::max(words.size(), address + 1));
            words[address] = static_cast<std::uint16_t>(*line.opcode);
        }
    }
    while (!words.empty() && words.back() == 0) {
        words.pop_back();
    }
    return words;
}

}  // namespace

Assembly Assemble(std::string_view source,
                  const std::vector<models::PredefinedSymbol>& predefinedSymbols,
                  int configurationWord, const common::ProgressCallback& progress) {
    const auto showStatus = [&](std::string_view status) {
        if (progress) {
            progress(status, 0);
        }
    };
    showStatus("Loading source file.");
    SymbolTable symbols(predefinedSymbols);
    Assembly assembly;
    assembly.lines = ReadLines(source);

    SplitFields(assembly, symbols, progress);
    ResolveEquates(assembly, symbols);
    AssignAddresses(assembly, symbols, progress);
    AssignLabelValues(assembly, symbols);
    ResolveOperands(assembly, symbols, progress);
    EncodeLines(assembly, progress);

    assembly.words = WordsOf(assembly.lines);

    showStatus("Writing LST file.");
    assembly.listing = ListingText(assembly);
    showStatus("Writing HEX file.");
    assembly.hex = IntelHexText(assembly.words, configurationWord);
    return assembly;
}

std::vector<common::Diagnostic> WarningsFor(const Assembly& assembly, std::string_view modelName,
                                            int programWords) {
    const auto line = std::find_if(
        assembly.lines.begin(), assembly.lines.end(),
        [&](const AsmLine& l) { return l.opcode.has_value() && l.address >= programWords; });
    if (line == assembly.lines.end()) {
        return {};
    }
    std::string text = "The program does not fit the " + std::string(modelName) + ": address " +
                       common::Hex4(line->address) + "h lies beyond its " +
                       std::to_string(programWords) + " program words.";
    return {{.line = static_cast<int>(line - assembly.lines.begin()) + 1,
             .severity = common::Severity::Warning,
             .text = std::move(text)}};
}

}  // namespace corvane::assembler
