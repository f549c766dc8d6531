#include "asm/code_generation.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "asm/hex_writer.h"
#include "asm/line_pass.h"
#include "asm/notes.h"
#include "asm/statement.h"
#include "common/number_text.h"

namespace corvane::assembler {

namespace {

// Exclusive limits of operand values. A register address may name its bank, a program address its
// page; neither goes into the word.
constexpr int kRegisterLimit = 512;
constexpr int kDestinationLimit = 2;
constexpr int kBitLimit = 8;
constexpr int kLiteralLimit = 256;
constexpr int kAddressLimit = 8192;

constexpr std::string_view kInvalidArgument = "Invalid argument of the instruction.";

std::optional<int> ValueOf(std::string_view operand, const SymbolTable& symbols) {
    const std::optional<int> value = symbols.Find(operand);
    return value ? value : common::ParseNumber(operand);
}

// A symbol is taken as it stands: whatever follows it is looked at in pass 3 only, and labels are
// still 0 in pass 2.
std::optional<int> OrgAddress(const AsmLine& line, const SymbolTable& symbols) {
    if (const std::optional<int> value = symbols.Find(line.operand1)) {
        return value;
    }
    return line.operand2.empty() ? common::ParseNumber(line.operand1) : std::nullopt;
}

void AssignAddress(Assembly& assembly, AsmLine& line, const SymbolTable& symbols,
                   int& locationCounter) {
    line.address = locationCounter;
    if (line.hasError) {
        return;
    }
    switch (FindStatement(line.mnemonic).kind) {
        case StatementKind::Empty:
        case StatementKind::Equ:
        case StatementKind::End:
            break;
        case StatementKind::Org:
            if (const std::optional<int> address = OrgAddress(line, symbols)) {
                locationCounter = *address;
                line.address = *address;
            } else {
                Report(assembly, line, "Invalid argument of the ORG directive.",
                       line.operand1.empty() ? "" : UnknownOperandNote(line.operand1));
            }
            break;
        case StatementKind::Dw:
        case StatementKind::Instruction:
            if (locationCounter > kHighestHexAddress) {
                Report(assembly, line, "Program address out of range.");
            }
            ++locationCounter;
            break;
        case StatementKind::Unrecognized:
            Report(assembly, line, "Unrecognized instruction.",
                   Quoted(line.mnemonic) + " is no instruction and no directive.");
            break;
    }
}

// False when the operand is neither a symbol nor a number. A missing operand keeps its 0.
bool ResolveOperand(std::string_view operand, const SymbolTable& symbols, int& value) {
    if (operand.empty()) {
        return true;
    }
    const std::optional<int> found = ValueOf(operand, symbols);
    value = found.value_or(0);
    return found.has_value();
}

// The operand checks of one line. Each of them is made, whatever the others found.
class OperandChecks {
  public:
    OperandChecks(Assembly& assembly, AsmLine& line) : assembly_(assembly), line_(line) {}

    void TwoOperands() { Require(line_.hasTwoOperands, "Two arguments expected."); }
    void NoOperand1() { RequireNone(line_.operand1); }
    void NoOperand2() { RequireNone(line_.operand2); }
    void Value1Below(int limit) { RequireBelow(line_.operand1, line_.value1, limit); }
    void Value2Below(int limit) { RequireBelow(line_.operand2, line_.value2, limit); }

  private:
    void Require(bool isRight, std::string_view message) {
        if (!isRight) {
            Report(assembly_, line_, message);
        }
    }

    void RequireNone(const std::string& operand) {
        if (!operand.empty()) {
            Report(assembly_, line_, kInvalidArgument,
                   Quoted(operand) + " is one argument too many.");
        }
    }

    void RequireBelow(const std::string& operand, int value, int limit) {
        if (value >= limit) {
            Report(assembly_, line_, kInvalidArgument, TooLargeNote(operand, limit));
        }
    }

    Assembly& assembly_;
    AsmLine& line_;
};

int EncodeInstruction(const isa::Instruction& instruction, OperandChecks checks,
                      const AsmLine& line) {
    switch (instruction.form) {
        case isa::OperandForm::None:
            checks.NoOperand1();
            checks.NoOperand2();
            break;
        case isa::OperandForm::Register:
            checks.Value1Below(kRegisterLimit);
            checks.NoOperand2();
            return instruction.firstWord + isa::RegisterField(line.value1);
        case isa::OperandForm::RegisterDestination:
            checks.TwoOperands();
            checks.Value1Below(kRegisterLimit);
            checks.Value2Below(kDestinationLimit);
            return instruction.firstWord + isa::RegisterField(line.value1) + (line.value2 << 7);
        case isa::OperandForm::RegisterBit:
            checks.TwoOperands();
            checks.Value1Below(kRegisterLimit);
            checks.Value2Below(kBitLimit);
            return instruction.firstWord + isa::RegisterField(line.value1) + (line.value2 << 7);
        case isa::OperandForm::Literal8:
            checks.Value1Below(kLiteralLimit);
            checks.NoOperand2();
            return instruction.firstWord + line.value1;
        case isa::OperandForm::Address11:
            checks.Value1Below(kAddressLimit);
            checks.NoOperand2();
            return instruction.firstWord + isa::Address11Field(line.value1);
    }
    return instruction.firstWord;
}

// The line's word, or none for a line that generates none. Of no use when the line has an error.
std::optional<int> Encode(OperandChecks checks, const AsmLine& line) {
    const Statement statement = FindStatement(line.mnemonic);
    switch (statement.kind) {
        case StatementKind::Instruction:
            return EncodeInstruction(*statement.instruction, checks, line);
        case StatementKind::Dw:
            checks.Value1Below(isa::kWordCount);
            checks.NoOperand2();
            return line.value1;
        case StatementKind::End:
            checks.NoOperand1();
            checks.NoOperand2();
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

}  // namespace

void AssignAddresses(Assembly& assembly, const SymbolTable& symbols,
                     const common::ProgressCallback& progress) {
    int locationCounter = 0;
    ForEachLine(assembly, "Performing pass 2.", progress,
                [&](AsmLine& line) { AssignAddress(assembly, line, symbols, locationCounter); });
}

void AssignLabelValues(const Assembly& assembly, SymbolTable& symbols) {
    for (const AsmLine& line : assembly.lines) {
        if (!line.label.empty() && FindStatement(line.mnemonic).kind != StatementKind::Equ) {
            symbols.SetValue(line.label, line.address);
        }
    }
}

void ResolveOperands(Assembly& assembly, const SymbolTable& symbols,
                     const common::ProgressCallback& progress) {
    ForEachLine(assembly, "Performing pass 3.", progress, [&](AsmLine& line) {
        if (line.hasError) {
            return;
        }
        if (!ResolveOperand(line.operand1, symbols, line.value1)) {
            Report(assembly, line, kInvalidArgument, UnknownOperandNote(line.operand1));
        } else if (!ResolveOperand(line.operand2, symbols, line.value2)) {
            Report(assembly, line, kInvalidArgument, UnknownOperandNote(line.operand2));
        }
    });
}

void EncodeLines(Assembly& assembly, const common::ProgressCallback& progress) {
    ForEachLine(assembly, "Performing pass 4.", progress, [&](AsmLine& line) {
        if (line.hasError) {
            return;
        }
        const std::optional<int> word = Encode(OperandChecks(assembly, line), line);
        if (word && !line.hasError) {
            line.opcode = word;
        }
    });
}

}  // namespace corvane::assembler
