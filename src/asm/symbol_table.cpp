#include "asm/symbol_table.h"

#include "common/text.h"

namespace corvane::assembler {

SymbolTable::SymbolTable(const std::vector<models::PredefinedSymbol>& predefinedSymbols) {
    for (const models::PredefinedSymbol& symbol : predefinedSymbols) {
        const std::string_view name = symbol.name;
        symbols_.emplace(common::TrimRight(name.substr(0, kNameWidth)), Symbol{symbol.value, true});
    }
}

bool SymbolTable::Define(std::string_view name) {
    return symbols_.emplace(name, Symbol{0, false}).second;
}

void SymbolTable::SetValue(std::string_view name, int value) {
    if (const auto symbol = symbols_.find(name); symbol != symbols_.end()) {
        symbol->second.value = value;
    }
}

std::optional<int> SymbolTable::Find(std::string_view name) const {
    const auto symbol = symbols_.find(name);
    return symbol == symbols_.end() ? std::nullopt : std::optional<int>(symbol->second.value);
}

bool SymbolTable::IsPredefined(std::string_view name) const {
    const auto symbol = symbols_.find(name);
    return symbol != symbols_.end() && symbol->second.isPredefined;
}

}  // namespace corvane::assembler
