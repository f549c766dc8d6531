// What the names in an expression mean: the model's registers and pins, and the program's own.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "inspect/quantity.h"
#include "models/catalogue.h"
#include "models/description.h"
#include "project/program.h"

namespace corvane::inspect {

struct Meaning {
    std::optional<Quantity> quantity{};  // what the name is the value of; none of a plain number
    std::int64_t number = 0;             // of a label or a constant
    std::optional<int> address{};        // what @NAME is
    bool isLabel = false;
};

class Names {
  public:
    Names(const models::Model& model, const models::ModelDescription& description,
          const project::Program& program);

    // In any case. Words of the language and of the processor are no names.
    const Meaning* Find(std::string_view name) const;

    // The number of a bit that stands behind a dot: the model's name or a constant of the program,
    // whatever its value.
    std::optional<int> BitNumber(std::string_view name) const;

    // A register of the model, whatever the program calls so.
    const Meaning* FindRegister(std::string_view name) const;

    // What the program, or else the model, calls a cell; empty without a name.
    std::string NameOfCell(int cell) const;

    // The cell that a data-memory address (0..1FFh) reaches.
    int CellAt(int address) const;

    int EepromBytes() const { return model_->eepromBytes; }
    const models::Model& Model() const { return *model_; }

  private:
    using Meanings = std::map<std::string, Meaning, std::less<>>;

    void AddRegisters();
    void AddPins();
    void AddProgram(const project::Program& program);
    Meaning Register(int address) const;
    Meaning MeaningOf(const basic::Variable& variable) const;

    const models::Model* model_;
    const models::ModelDescription* description_;
    Meanings registers_;
    Meanings programNames_;
    Meanings pins_;
    std::map<std::string, int, std::less<>> numbers_;  // the model's symbols and the constants
};

}  // namespace corvane::inspect
