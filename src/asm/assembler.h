// The assembler: source text in, listing and Intel HEX text out.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/diagnostic.h"
#include "common/progress.h"
#include "models/symbol_lines.h"

namespace corvane::assembler {

struct AsmLine {
    std::string source;  // as read, at most 100 characters
    std::string label;   // upper case, at most 32 characters, or empty
    std::string mnemonic;
    std::string operand1;
    std::string operand2;
    bool hasTwoOperands = false;  // the operand field has a comma
    bool hasError = false;
    std::string errorMessage;  // the last one, without padding
    int address = 0;           // program word address
    int value1 = 0;
    int value2 = 0;
    std::optional<int> opcode;  // the generated word
};

struct Assembly {
    std::vector<AsmLine> lines;  // line i + 1 of the source
    int errorCount = 0;          // every failed check counts; a line may fail several
    // What there is to add to the message of a line: which operand or name is meant. In line order.
    std::vector<common::Diagnostic> notes;
    std::string listing;  // CR LF line ends
    std::string hex;      // CR LF line ends
    // The program from address 0 to its last word that is not 0. Of lines with the same address the
    // last one counts.
    std::vector<std::uint16_t> words;
};

// Never fails: errors stand in the lines, in the listing and in errorCount.
Assembly Assemble(std::string_view source,
                  const std::vector<models::PredefinedSymbol>& predefinedSymbols,
                  int configurationWord, const common::ProgressCallback& progress = {});

// The first line whose word lies beyond the model's program memory, if there is one, and lines of
// which only an instruction's name in the first column was read, as a label.
std::vector<common::Diagnostic> WarningsFor(const Assembly& assembly, std::string_view modelName,
                                            int programWords);

}  // namespace corvane::assembler
