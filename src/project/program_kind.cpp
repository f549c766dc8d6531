#include "project/program_kind.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "common/text.h"

namespace corvane::project {

namespace fs = std::filesystem;

ProgramKind KindOf(std::string_view file) {
    const std::string lower = common::ToLower(file);
    for (const ProgramKind kind : {ProgramKind::Hex, ProgramKind::Assembler, ProgramKind::Basic}) {
        if (lower.ends_with(SuffixOf(kind))) {
            return kind;
        }
    }
    return ProgramKind::Unknown;
}

std::string_view SuffixOf(ProgramKind kind) {
    constexpr std::array<std::string_view, 4> kSuffixes = {".hex", ".asm", ".bas", ""};
    return kSuffixes.at(static_cast<std::size_t>(kind));
}

bool IsOfUnnamedKind(const std::string& file) {
    std::error_code error;
    return !fs::path(file).has_extension() || fs::is_fifo(file, error);
}

std::string NameBeside(const std::string& file, std::string_view extension) {
    fs::path path(file);
    std::string name = path.filename().string();
    name.resize(std::min(name.find('.'), name.size()));
    return path.replace_filename(name.append(extension)).string();
}

}  // namespace corvane::project
