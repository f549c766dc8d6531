// Source files: their kinds, their texts, and the names of what is made from them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "cli/model_files.h"
#include "common/result.h"

namespace corvane::cli {

enum class FileKind : std::uint8_t { Hex, Assembler, Basic, Unknown };

// By the name's last extension, in either case.
FileKind KindOf(const std::string& file);

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
