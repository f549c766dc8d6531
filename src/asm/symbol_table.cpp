#include "asm/symbol_table.h"

#include "common/text.h"

namespace corvane::assembler {

SymbolTable::SymbolTable(const std::vector<models::PredefinedSymbol>& predefinedSymbols) {
    for (const models::PredefinedSymbol& symbol : predefinedSymbols) {
        const std::string_view name = symbol.name;
        values_.emplace(common::TrimRight(name.substr(0, kNameWidth)), symbol.value);
    }
}

bool SymbolTable::Define(std::string_view name) {
    return values_.emplace(name, 0).second;
}

void SymbolTable::SetValue(std::string_view name, int value) {
    if (const auto symbol = values_.find(name); symbol != values_.end()) {
        symbol->second = value;
    }
}

std::optional<int> SymbolTable::Find(std::string_view name) const {
    const auto symbol = values_.find(name);
    return symbol == values_.end() ? std::nullopt : std::optional<int>(symbol->second);
}

}  // namespace corvane::assembler
