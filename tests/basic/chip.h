// A BASIC program in a simulated chip: compiled, assembled, loaded and run.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "basic/basic_fixture.h"
#include "core/processor.h"

namespace corvane::basic {

class Chip {
  public:
    // Started. Fails the test when the text does not compile or assemble.
    Chip(std::string_view modelName, std::string_view text, float clockFrequency = 4.0F);

    // Resets the chip, which clears the variables, and starts again.
    void Restart();

    // Runs to the endless loop behind the last statement.
    void RunToEnd();

    // A variable's value, read from data memory at the address that the compiler's comments tell.
    int Value(const std::string& name) const;

    void SetValue(const std::string& name, int value);

    int Address(const std::string& name) const { return variables_.at(name).address; }

    core::Processor& Processor() { return processor_; }
    const std::vector<common::Diagnostic>& Warnings() const { return warnings_; }

  private:
    struct Variable {
        int address = 0;
        int bit = -1;   // of a Bit
        int bytes = 1;  // of a Byte or Word
    };

    // "; 3: Dim w As Word" and the line after it, ";       The address of 'w' is 0xA0"
    void ReadVariables(const std::string& assemblerText);
    void Load(std::string_view assemblerText);

    core::Processor processor_;
    std::map<std::string, Variable> variables_;
    std::vector<common::Diagnostic> warnings_;
};

}  // namespace corvane::basic
