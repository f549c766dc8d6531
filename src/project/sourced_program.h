// A program as the check needs it: its words, and what its source says about them.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "asm/assembler.h"
#include "check/check.h"
#include "loader/intel_hex.h"
#include "project/cod_file.h"

namespace corvane::project {

// What a program word is that nothing has been written to.
inline constexpr std::uint16_t kErasedWord = 0x3FFF;

struct SourceLine {
    std::string file;  // as messages name it
    int number = 0;    // from 1
    std::string text;
};

struct SourcedProgram {
    check::Program program;
    std::vector<std::optional<SourceLine>> lines;  // by address of the word that a line made
};

// The words alone.
SourcedProgram FromImage(const loader::Program& image);

// An assembler source without errors, its text, and the name that messages give it.
SourcedProgram FromAssembly(const assembler::Assembly& assembly, std::string_view text,
                            const std::string& file, int programWords);

// The assembly of a BASIC text, and the BASIC line of each of its lines (basic::Compilation). The
// compiler selects its banks itself and names addresses by numbers, so that only its labels say
// what is meant.
SourcedProgram FromCompiledAssembly(const assembler::Assembly& assembly,
                                    const std::vector<int>& sourceLines, std::string_view text,
                                    const std::string& file, int programWords);

// The source files are looked for in the folder; shownName says how messages name one of them.
SourcedProgram FromCod(const CodFile& cod, const std::filesystem::path& folder, int programWords,
                       const std::function<std::string(const std::string& file)>& shownName);

// The words of the .cod file are those of the image, as far as its memory goes.
bool Belongs(const CodFile& cod, const loader::Program& image);

// Words of 3FFF are as good as none.
bool HaveSameWords(const check::Program& first, const check::Program& second);

}  // namespace corvane::project
