#include "models/symbol_lines.h"

#include <cstddef>
#include <optional>

#include "common/number_text.h"
#include "common/text.h"
#include "models/catalogue.h"

namespace corvane::models {

namespace {

// Upper case, tabs and runs of blanks as one blank, without comment and outer blanks.
std::string NormalizedLine(std::string_view line) {
    std::string result;
    for (const char c : common::ToUpper(line.substr(0, line.find(';')))) {
        const char shown = c == '\t' ? ' ' : c;
        if (shown != ' ' || !result.ends_with(' ')) {
            result += shown;
        }
    }
    return std::string(common::Trim(result));
}

bool BeginsName(char c) {
    return c == '_' || (c >= 'A' && c <= 'Z');
}

}  // namespace

PredefinedSymbols ReadSymbolLines(const std::vector<SymbolLine>& lines) {
    constexpr std::string_view kEqu = " EQU ";
    PredefinedSymbols result;
    for (const SymbolLine& line : lines) {
        const std::string text = NormalizedLine(line.text);
        const std::size_t equ = text.find(kEqu);
        if (equ == std::string::npos) {
            continue;
        }
        const std::optional<int> value =
            common::ParseNumber(std::string_view(text).substr(equ + kEqu.size()));
        if (!BeginsName(text.front()) || !value) {
            result.badLines.push_back(line.lineNumber);
            continue;
        }
        result.symbols.push_back({text.substr(0, equ), *value});
    }
    return result;
}

std::string BadSymbolLineMessage(std::string_view modelName) {
    return "Invalid argument of the EQU directive.\r\nFile '" + DescriptionFileName(modelName) +
           "' is corrupted.";
}

}  // namespace corvane::models
