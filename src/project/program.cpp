#include "project/program.h"

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "isa/instruction_set.h"

namespace corvane::project {

namespace {

bool TakesRegister(const assembler::AsmLine& line) {
    const isa::Instruction* instruction = isa::FindMnemonic(line.mnemonic);
    return instruction != nullptr && (instruction->form == isa::OperandForm::Register ||
                                      instruction->form == isa::OperandForm::RegisterDestination ||
                                      instruction->form == isa::OperandForm::RegisterBit);
}

std::unordered_set<std::string_view> RegisterOperands(const assembler::Assembly& assembly) {
    std::unordered_set<std::string_view> operands;
    for (const assembler::AsmLine& line : assembly.lines) {
        if (TakesRegister(line)) {
            operands.insert(line.operand1);
        }
    }
    return operands;
}

// Of two words at one address the last one counts. The line of each line's word is worked out from
// the line's index; 0 is none.
template <typename LineOfIndex>
void AddLines(Program& program, const std::string& file, const assembler::Assembly& assembly,
              LineOfIndex lineOfIndex) {
    program.files = {file};
    program.places.assign(program.image.words.size(), std::nullopt);
    for (std::size_t i = 0; i < assembly.lines.size(); ++i) {
        const auto address = static_cast<std::size_t>(assembly.lines[i].address);
        if (assembly.lines[i].opcode && address < program.places.size()) {
            const int line = lineOfIndex(i);
            program.places[address] = line > 0 ? std::optional(Place{0, line}) : std::nullopt;
        }
    }
}

bool IsSame(const std::optional<Place>& a, const std::optional<Place>& b) {
    return a.has_value() == b.has_value() && (!a || (a->file == b->file && a->line == b->line));
}

}  // namespace

void AddAssemblerSource(Program& program, const std::string& file,
                        const assembler::Assembly& assembly) {
    AddLines(program, file, assembly, [](std::size_t i) { return static_cast<int>(i) + 1; });
    const std::unordered_set<std::string_view> registers = RegisterOperands(assembly);
    for (const assembler::AsmLine& line : assembly.lines) {
        if (line.label.empty()) {
            continue;
        }
        if (line.mnemonic == "EQU") {
            program.constants.push_back({line.label, line.value1, registers.contains(line.label)});
        } else {
            program.labels.push_back({line.label, line.address});
        }
    }
}

void AddBasicSource(Program& program, const std::string& file,
                    const basic::Compilation& compilation, const assembler::Assembly& assembly) {
    AddLines(program, file, assembly, [&](std::size_t i) {
        return i < compilation.sourceLines.size() ? compilation.sourceLines[i] : 0;
    });
    program.variables = compilation.variables;
    std::unordered_map<std::string_view, int> addresses;
    for (const assembler::AsmLine& line : assembly.lines) {
        addresses.emplace(line.label, line.address);
    }
    for (const basic::LineLabel& label : compilation.labels) {
        if (const auto address = addresses.find(label.assemblerLabel); address != addresses.end()) {
            program.labels.push_back({label.name, address->second});
        }
    }
}

void AddCodSource(Program& program, const CodFile& cod,
                  const std::function<std::string(const std::string& file)>& shownName) {
    for (const std::string& file : cod.files) {
        program.files.push_back(shownName(file));
    }
    program.places.assign(program.image.words.size(), std::nullopt);
    for (std::size_t address = 0; address < program.places.size(); ++address) {
        if (const std::optional<CodLine>& line = cod.lines[address]) {
            program.places[address] = Place{line->file, line->line};
        }
    }
    for (const CodSymbol& symbol : cod.symbols) {
        const auto value = static_cast<int>(symbol.value);
        if (symbol.kind == CodSymbolKind::Address) {
            program.labels.push_back({symbol.name, value});
        } else {
            program.constants.push_back(
                {symbol.name, value, symbol.kind == CodSymbolKind::Register});
        }
    }
}

std::optional<Place> PlaceAt(const Program& program, int address) {
    const auto index = static_cast<std::size_t>(address);
    return index < program.places.size() ? program.places[index] : std::nullopt;
}

std::string PlaceText(const Program& program, int address) {
    const std::optional<Place> place = PlaceAt(program, address);
    return place ? program.files[static_cast<std::size_t>(place->file)] + ":" +
                       std::to_string(place->line)
                 : "";
}

std::vector<int> LineStarts(const Program& program) {
    std::vector<int> starts;
    for (int address = 0; address < static_cast<int>(program.places.size()); ++address) {
        const std::optional<Place> place = PlaceAt(program, address);
        if (place && (address == 0 || !IsSame(place, PlaceAt(program, address - 1)))) {
            starts.push_back(address);
        }
    }
    return starts;
}

LineWords WordsFromLineOn(const Program& program, Place place) {
    LineWords nearest;
    for (const int address : LineStarts(program)) {
        const Place start = *PlaceAt(program, address);
        if (start.file != place.file || start.line < place.line ||
            (nearest.line != 0 && start.line > nearest.line)) {
            continue;
        }
        if (start.line != nearest.line) {
            nearest = {.line = start.line};
        }
        nearest.addresses.push_back(address);
    }
    return nearest;
}

}  // namespace corvane::project
