// A program with what its source tells of the words: names, and the line of each word.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "asm/assembler.h"
#include "basic/compiler.h"
#include "loader/intel_hex.h"
#include "project/cod_file.h"

namespace corvane::project {

struct Label {
    std::string name;
    int address;  // of a program word
};

// A name that EQU has defined.
struct Constant {
    std::string name;
    int value;
    bool namesRegister;  // the program uses it as the first operand of a register instruction
};

// A line of one of the program's sources.
struct Place {
    int file;  // index into Program::files
    int line;  // from 1
};

struct Program {
    loader::Program image{};
    std::vector<Label> labels{};
    std::vector<Constant> constants{};
    std::vector<basic::DeclaredVariable> variables{};  // of a BASIC program
    std::vector<std::string> files{};                  // the sources, as messages name them
    std::vector<std::optional<Place>> places{};        // by address: the line that made the word
};

// Each of these fills in what its source tells; the image is there already. The file is the name
// that messages give the source, the assembly has no errors.
void AddAssemblerSource(Program& program, const std::string& file,
                        const assembler::Assembly& assembly);

// The assembly has been made of the compilation.
void AddBasicSource(Program& program, const std::string& file,
                    const basic::Compilation& compilation, const assembler::Assembly& assembly);

// The second function says how messages name one of the sources.
void AddCodSource(Program& program, const CodFile& cod,
                  const std::function<std::string(const std::string& file)>& shownName);

// Whether anything is known of the lines.
inline bool HasSource(const Program& program) {
    return !program.files.empty();
}

// The line of the word at this address, where a line made one.
std::optional<Place> PlaceAt(const Program& program, int address);

// "FILE:LINE" of the same; empty where no line made one.
std::string PlaceText(const Program& program, int address);

// The addresses at which the words of a source line begin.
std::vector<int> LineStarts(const Program& program);

// A line that has words, and the addresses at which they begin.
struct LineWords {
    int line = 0;  // 0: there is none
    std::vector<int> addresses{};
};

// Of this line, or else of the next one of its file that has words.
LineWords WordsFromLineOn(const Program& program, Place place);

}  // namespace corvane::project
