// Source files: their kinds, their texts, and the names of what is made from them.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "cli/model_files.h"
#include "common/result.h"

namespace corvane::cli {

enum class FileKind : std::uint8_t { Hex, Assembler, Basic, Unknown };

// By the name's last extension, in either case.
FileKind KindOf(const std::string& file);

// Why a command that takes only these kinds refuses the name: "FILE: error: The name must end in
// .asm.". Nothing when it is one of them.
std::optional<std::string> WrongKind(const std::string& file,
                                     std::initializer_list<FileKind> kinds);

// Whether the name leaves open what the file is: one without suffix, or a pipe.
bool IsOfUnnamedKind(const std::string& file);

inline constexpr std::string_view kEmptySource = "The editor is empty.";

// The whole text. The error is complete; an empty source is one.
common::Result<std::string> ReadSource(const std::string& file);

// What a command on a source works with.
struct SourceInput {
    ModelFile modelFile;
    std::string text;
};

// The model's description file, then the source. The error is complete.
common::Result<SourceInput> ReadSourceInput(const ModelOptions& options, const std::string& file);

// The name in the same folder that ends in this extension (".hex") after the part before its first
// ".".
std::string NameBeside(const std::string& file, std::string_view extension);

}  // namespace corvane::cli
