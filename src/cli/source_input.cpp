#include "cli/source_input.h"

#include <algorithm>
#include <utility>

#include "cli/diagnostics.h"
#include "project/build.h"

namespace corvane::cli {

std::optional<std::string> WrongKind(const std::string& file,
                                     std::initializer_list<project::ProgramKind> kinds) {
    if (std::ranges::find(kinds, project::KindOf(file)) != kinds.end()) {
        return std::nullopt;
    }
    std::string names;
    for (const project::ProgramKind kind : kinds) {
        const bool isLast = kind == kinds.end()[-1];
        names += (names.empty() ? ""
                  : isLast      ? " or "
                                : ", ") +
                 std::string(project::SuffixOf(kind));
    }
    return ErrorText(file, "The name must end in " + names + ".");
}

std::optional<SourceInput> ReadSourceInput(const project::ModelChoice& model,
                                           const std::string& file) {
    project::Messages messages;
    std::optional<project::ModelFile> modelFile = project::ReadModelFile(model, messages);
    std::optional<std::string> text =
        modelFile ? project::ReadSource(file, messages) : std::nullopt;
    Report(messages);
    return text ? std::optional(SourceInput{*std::move(modelFile), *std::move(text)})
                : std::nullopt;
}

}  // namespace corvane::cli
