#include "cli/gpasm_build.h"

#include <utility>

#include "cli/diagnostics.h"
#include "cli/interrupt.h"
#include "cli/program_file.h"
#include "cli/source_file.h"

namespace corvane::cli {

namespace {

using BuildResult = common::Result<GpasmBuild, GpasmFailure>;

BuildResult Failure(CommandResult result, std::string listing = "") {
    return BuildResult::Failure({std::move(result), std::move(listing)});
}

}  // namespace

bool IsForGpasm(const AssemblerOptions& assembler, const std::string& file) {
    return assembler.kind == AssemblerKind::Gpasm && KindOf(file) == FileKind::Assembler;
}

common::Result<ModelOptions> ModelOfProcessor(const std::string& file, const std::string& processor,
                                              const ModelOptions& model) {
    const std::optional<models::NamedModel> named = models::FindModelAsWritten(processor);
    if (!named) {
        return common::Result<ModelOptions>::Failure(ErrorText(
            file, "There is no model for the processor '" + processor + "'; 'models' lists them."));
    }
    ModelOptions result = model;
    result.model = &models::kModelCatalogue[static_cast<std::size_t>(named->row)];
    if (!named->warning.empty()) {
        ReportWarning(file, 0, named->warning);
    }
    return common::Result<ModelOptions>::Success(std::move(result));
}

BuildResult BuildWithGpasm(const std::string& source, const ModelOptions& model,
                           const AssemblerOptions& assembler) {
    if (const common::Result<std::string> text = ReadSource(source); !text) {
        return Failure(Refused(text.error));
    }
    CatchInterrupts();
    project::GpasmResult files =
        project::RunGpasm({.source = source,
                           .processor = project::GpasmProcessor(model.name),
                           .extra = assembler.passedOn,
                           .isCancelled = [] { return IsInterrupted(); }});
    for (const common::Diagnostic& message : files.messages) {
        WriteStandardError(common::TextWithFile(message));
    }
    if (files.isCancelled) {
        return Failure({Ending::Interrupted, ""});
    }
    if (files.hasErrors || !files.failure.empty()) {
        return Failure(Refused(files.failure.empty() ? "" : ErrorText(source, files.failure)),
                       std::move(files.listing));
    }
    common::Result<ModelOptions> chosen = model.name.empty()
                                              ? ModelOfProcessor(source, files.cod.processor, model)
                                              : common::Result<ModelOptions>::Success(model);
    if (!chosen) {
        return Failure(Refused(chosen.error), std::move(files.listing));
    }
    common::Result<ModelFile> modelFile = ReadModelFile(*chosen);
    if (!modelFile) {
        return Failure(Refused(modelFile.error), std::move(files.listing));
    }
    common::Result<loader::Program> image = LoadHexFile(source, files.hex, *modelFile->model);
    if (!image) {
        return Failure(Refused(ErrorText(source, "gpasm has left no HEX file that can be loaded.") +
                               "\n" + image.error),
                       std::move(files.listing));
    }
    return BuildResult::Success(
        {*std::move(modelFile.value), *std::move(image.value), std::move(files)});
}

}  // namespace corvane::cli
