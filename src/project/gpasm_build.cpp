#include "project/gpasm_build.h"

#include <utility>

#include "project/build.h"
#include "project/hex_file.h"
#include "project/program_kind.h"

namespace corvane::project {

namespace {

std::optional<GpasmProgram> LoadResult(const std::string& source, const ModelChoice& model,
                                       const GpasmResult& files, Messages& messages) {
    const std::optional<ModelChoice> chosen =
        model.name.empty() ? ModelOfProcessor(source, files.cod.processor, model, messages) : model;
    std::optional<ModelFile> modelFile = chosen ? ReadModelFile(*chosen, messages) : std::nullopt;
    if (!modelFile) {
        return std::nullopt;
    }
    Messages hexMessages;
    std::optional<loader::Program> image =
        LoadHexText(source, files.hex, *modelFile->model, hexMessages);
    if (!image) {
        AddError(messages, source, 0, "gpasm has left no HEX file that can be loaded.");
    }
    messages.insert(messages.end(), hexMessages.begin(), hexMessages.end());
    return image ? std::optional(GpasmProgram{*std::move(modelFile), *std::move(image)})
                 : std::nullopt;
}

}  // namespace

bool IsForGpasm(const AssemblerChoice& assembler, const std::string& file) {
    return assembler.kind == AssemblerKind::Gpasm && KindOf(file) == ProgramKind::Assembler;
}

GpasmBuild BuildWithGpasm(const std::string& source, const ModelChoice& model,
                          const AssemblerChoice& assembler, Messages& messages) {
    if (!ReadSource(source, messages)) {
        return {};
    }
    GpasmBuild build{.files = RunGpasm({.source = source,
                                        .processor = GpasmProcessor(model.name),
                                        .extra = assembler.passedOn,
                                        .isCancelled = assembler.isCancelled}),
                     .program = std::nullopt};
    GpasmResult& files = build.files;
    messages.insert(messages.end(), files.messages.begin(), files.messages.end());
    if (!files.failure.empty()) {
        AddError(messages, source, 0, files.failure);
    } else if (!files.hasErrors && !files.isCancelled) {
        build.program = LoadResult(source, model, files, messages);
    }
    return build;
}

}  // namespace corvane::project
