#include "cli/source_file.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "cli/diagnostics.h"
#include "common/text.h"
#include "common/text_file.h"

namespace corvane::cli {

namespace fs = std::filesystem;

namespace {

std::string_view SuffixOf(FileKind kind) {
    switch (kind) {
        case FileKind::Hex:
            return ".hex";
        case FileKind::Assembler:
            return ".asm";
        case FileKind::Basic:
            return ".bas";
        case FileKind::Unknown:
            break;
    }
    return "";
}

}  // namespace

FileKind KindOf(const std::string& file) {
    const std::string lower = common::ToLower(file);
    if (lower.ends_with(".hex")) {
        return FileKind::Hex;
    }
    if (lower.ends_with(".asm")) {
        return FileKind::Assembler;
    }
    return lower.ends_with(".bas") ? FileKind::Basic : FileKind::Unknown;
}

std::optional<std::string> WrongKind(const std::string& file,
                                     std::initializer_list<FileKind> kinds) {
    if (std::ranges::find(kinds, KindOf(file)) != kinds.end()) {
        return std::nullopt;
    }
    std::string names;
    for (const FileKind kind : kinds) {
        const bool isLast = kind == kinds.end()[-1];
        names += (names.empty() ? "" : isLast ? " or " : ", ") + std::string(SuffixOf(kind));
    }
    return ErrorText(file, "The name must end in " + names + ".");
}

bool IsOfUnnamedKind(const std::string& file) {
    std::error_code error;
    return !fs::path(file).has_extension() || fs::is_fifo(file, error);
}

common::Result<std::string> ReadSource(const std::string& file) {
    common::Result<std::string> text = common::ReadTextFile(file);
    if (!text) {
        return common::Result<std::string>::Failure(ErrorText(file, text.error));
    }
    if (text->empty()) {
        return common::Result<std::string>::Failure(ErrorText(file, kEmptySource));
    }
    return text;
}

common::Result<SourceInput> ReadSourceInput(const ModelOptions& options, const std::string& file) {
    using ReadResult = common::Result<SourceInput>;
    common::Result<ModelFile> modelFile = ReadModelFile(options);
    if (!modelFile) {
        return ReadResult::Failure(std::move(modelFile.error));
    }
    common::Result<std::string> text = ReadSource(file);
    if (!text) {
        return ReadResult::Failure(std::move(text.error));
    }
    return ReadResult::Success({*std::move(modelFile.value), *std::move(text.value)});
}

std::string NameBeside(const std::string& file, std::string_view extension) {
    fs::path path(file);
    std::string name = path.filename().string();
    name.resize(std::min(name.find('.'), name.size()));
    return path.replace_filename(name.append(extension)).string();
}

}  // namespace corvane::cli
