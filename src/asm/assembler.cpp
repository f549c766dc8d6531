#include "asm/assembler.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "asm/code_generation.h"
#include "asm/hex_writer.h"
#include "asm/listing.h"
#include "asm/source_lines.h"
#include "asm/statement.h"
#include "asm/symbol_table.h"
#include "common/number_text.h"
#include "common/text.h"

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

    std::ranges::stable_sort(assembly.notes, {}, &common::Diagnostic::line);
    assembly.words = WordsOf(assembly.lines);

    showStatus("Writing LST file.");
    assembly.listing = ListingText(assembly);
    showStatus("Writing HEX file.");
    assembly.hex = IntelHexText(assembly.words, configurationWord);
    return assembly;
}

namespace {

// "NOP" at the beginning of a line, and nothing else: the assembler takes it for a label.
bool IsMistakenLabel(const AsmLine& line) {
    const StatementKind kind = FindStatement(line.label).kind;
    return !line.label.empty() && line.mnemonic.empty() && !line.hasError &&
           (kind == StatementKind::Instruction || kind == StatementKind::End) &&
           common::ToUpper(common::TrimRight(line.source.substr(0, line.source.find(';')))) ==
               line.label;
}

}  // namespace

std::vector<common::Diagnostic> WarningsFor(const Assembly& assembly, std::string_view modelName,
                                            int programWords) {
    std::vector<common::Diagnostic> warnings;
    int lineNumber = 0;
    const auto warn = [&](std::string text) {
        warnings.push_back(
            {.line = lineNumber, .severity = common::Severity::Warning, .text = std::move(text)});
    };
    bool fits = true;
    for (const AsmLine& line : assembly.lines) {
        ++lineNumber;
        if (IsMistakenLabel(line)) {
            warn(line.label +
                 " is a label here; an instruction must not begin in the first column.");
        }
        if (fits && line.opcode && line.address >= programWords) {
            fits = false;
            warn("The program does not fit the " + std::string(modelName) + ": address " +
                 common::Hex4(line.address) + "h lies beyond its " + std::to_string(programWords) +
                 " program words.");
        }
    }
    return warnings;
}

}  // namespace corvane::assembler
