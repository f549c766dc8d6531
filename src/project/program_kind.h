// What a file is by its name, and the names of what is made from it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane::project {

enum class ProgramKind : std::uint8_t { Hex, Assembler, Basic, Unknown };

// By the name's last extension, in either case.
ProgramKind KindOf(std::string_view file);

// ".hex", ".asm", ".bas"; empty for Unknown.
std::string_view SuffixOf(ProgramKind kind);

// Whether the name leaves open what the file is: one without suffix, or a pipe.
bool IsOfUnnamedKind(const std::string& file);

// The name in the same folder that ends in this extension (".hex") after the part before its first
// ".".
std::string NameBeside(const std::string& file, std::string_view extension);

}  // namespace corvane::project
