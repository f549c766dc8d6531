#include "inspect/names.h"

#include <cstddef>

#include "common/text.h"
#include "core/pins.h"
#include "models/symbol_lines.h"

namespace corvane::inspect {

namespace {

const Meaning* Lookup(const std::map<std::string, Meaning, std::less<>>& meanings,
                      std::string_view upperName) {
    const auto meaning = meanings.find(upperName);
    return meaning == meanings.end() ? nullptr : &meaning->second;
}

}  // namespace

Names::Names(const models::Model& model, const models::ModelDescription& description,
             const project::Program& program)
    : model_(&model), description_(&description) {
    for (const models::PredefinedSymbol& symbol :
         models::ReadSymbolLines(description.asmSymbolLines).symbols) {
        numbers_.emplace(symbol.name, symbol.value);
    }
    AddPins();
    AddRegisters();
    AddProgram(program);
}

const Meaning* Names::Find(std::string_view name) const {
    const std::string upper = common::ToUpper(name);
    for (const Meanings* meanings : {&programNames_, &registers_, &pins_}) {
        if (const Meaning* meaning = Lookup(*meanings, upper)) {
            return meaning;
        }
    }
    return nullptr;
}

const Meaning* Names::FindRegister(std::string_view name) const {
    return Lookup(registers_, name);
}

std::string Names::NameOfCell(int cell) const {
    for (const Meanings* meanings : {&programNames_, &registers_}) {
        for (const auto& [name, meaning] : *meanings) {
            if (meaning.quantity && meaning.quantity->kind != QuantityKind::CellBit &&
                meaning.quantity->place == cell) {
                return name;
            }
        }
    }
    return "";
}

std::optional<int> Names::BitNumber(std::string_view name) const {
    const auto number = numbers_.find(common::ToUpper(name));
    return number == numbers_.end() ? std::nullopt : std::optional(number->second);
}

int Names::CellAt(int address) const {
    return description_->addressMap[static_cast<std::size_t>(address)];
}

void Names::AddPins() {
    const models::FamilyTraits& traits = models::TraitsOf(model_->family);
    for (int port = 0; port < traits.portCount; ++port) {
        for (int bit = 0; bit < 8; ++bit) {
            const std::string name = {'R', static_cast<char>('A' + port),
                                      static_cast<char>('0' + bit)};
            if (core::FindPin(*model_, name)) {
                pins_[name] = {.quantity = Quantity{QuantityKind::PinLevel, port, bit}};
            }
        }
    }
}

void Names::AddRegisters() {
    for (const models::Sfr& sfr : description_->sfrList) {
        if (sfr.address < models::kDataMemorySize) {
            const std::size_t name = sfr.label.rfind(' ') + 1;  // "003h  STATUS"
            registers_[common::ToUpper(sfr.label.substr(name))] = Register(sfr.address);
        }
    }
}

void Names::AddProgram(const project::Program& program) {
    for (const project::Constant& constant : program.constants) {
        const std::string name = common::ToUpper(constant.name);
        const auto predefined = numbers_.find(name);
        if (predefined != numbers_.end() && predefined->second == constant.value) {
            continue;  // the model's own definition once more
        }
        numbers_[name] = constant.value;
        const bool isRegister = constant.namesRegister && constant.value < models::kDataMemorySize;
        programNames_[name] = isRegister
                                  ? Register(constant.value)
                                  : Meaning{.number = constant.value, .address = constant.value};
    }
    for (const project::Label& label : program.labels) {
        programNames_[common::ToUpper(label.name)] = {
            .number = label.address, .address = label.address, .isLabel = true};
    }
    for (const auto& [name, variable] : program.variables) {
        programNames_[common::ToUpper(name)] = MeaningOf(variable);
    }
}

Meaning Names::Register(int address) const {
    return {.quantity = Quantity{QuantityKind::Cell, CellAt(address)}, .address = address};
}

Meaning Names::MeaningOf(const basic::Variable& variable) const {
    Meaning meaning = Register(variable.address);
    if (variable.type == basic::BasicType::Bit) {
        meaning.quantity->kind = QuantityKind::CellBit;
        meaning.quantity->second = variable.bit;
    } else if (variable.type == basic::BasicType::Word) {
        meaning.quantity->kind = QuantityKind::CellPair;
        meaning.quantity->second = CellAt((variable.address + 1) % models::kDataMemorySize);
    }
    return meaning;
}

}  // namespace corvane::inspect
