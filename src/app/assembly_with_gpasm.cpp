#include "app/assembly_with_gpasm.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "common/text_file.h"
#include "loader/intel_hex.h"
#include "models/catalogue.h"
#include "project/check_messages.h"
#include "project/gpasm.h"

namespace corvane::app {

namespace fs = std::filesystem;

namespace {

// The .cod file is no text.
bool WriteBytesOrInform(Dialogs& dialogs, const std::string& path, std::string_view bytes) {
    const std::optional<std::string> reason = common::WriteTextFile(path, bytes);
    if (reason) {
        dialogs.Inform(NotWrittenMessage(path, *reason));
    }
    return !reason;
}

// What a person should know when the program is not for the selected model.
std::string RemarkOnProcessor(const models::NamedModel& named, const models::Model& selected) {
    const models::Model& model = models::kModelCatalogue[static_cast<std::size_t>(named.row)];
    std::string remark = named.warning;
    if (model.name != selected.name) {
        remark += (remark.empty() ? "" : " ") +
                  ("It is a program for the " + std::string(model.name)) + "; the " +
                  std::string(selected.name) + " is selected.";
    }
    return remark;
}

void TakeMessages(AssemblyRun& run, const SourceFile& source,
                  std::vector<common::Diagnostic> messages) {
    for (common::Diagnostic& message : messages) {
        if (message.file == source.Path()) {
            message.file = source.Name();
        }
        run.errorCount += message.severity == common::Severity::Error ? 1 : 0;
    }
    run.messages = std::move(messages);
}

// Why the HEX file is of no use here; empty when it is.
std::string ReasonToRefuse(const project::GpasmResult& files, const models::Model& model) {
    if (!models::FindModelAsWritten(files.cod.processor)) {
        return "There is no model for the processor '" + files.cod.processor + "'.";
    }
    const auto image = loader::ReadIntelHex(files.hex, model.programWords);
    return image ? "" : "gpasm has left no HEX file that can be loaded.";
}

project::SourcedProgram Sourced(const project::GpasmResult& files, const SourceFile& source,
                                const models::Model& model) {
    return project::FromCod(files.cod, fs::path(source.Path()).parent_path(), model.programWords,
                            [](const std::string& file) { return file; });
}

}  // namespace

void RemoveOldResults(std::initializer_list<std::string> paths) {
    for (const std::string& path : paths) {
        std::error_code ignored;
        fs::remove(path, ignored);
    }
}

void AddFindings(AssemblyRun& run, const Workbench& workbench, const std::string& file,
                 const project::SourcedProgram& program) {
    std::vector<common::Diagnostic> findings = project::CheckMessages(
        file, program, check::Check(program.program, workbench.Processor().description),
        project::UsualRules());
    std::ranges::move(findings, std::back_inserter(run.messages));
}

AssemblyRun AssembleWithGpasm(const Workbench& workbench, Dialogs& dialogs,
                              const SourceFile& source, std::string_view text,
                              const std::function<bool()>& isCancelled) {
    const models::Model& model = workbench.Model();
    const std::string hexPath = source.PathWithExtension(".hex");
    const std::string codPath = source.PathWithExtension(".cod");
    RemoveOldResults({source.PathWithExtension(".lst"), hexPath, codPath});
    project::GpasmResult files = project::RunGpasm(
        {.source = source.Path(),
         .processor = project::NamesProcessor(text) ? "" : project::GpasmProcessor(model.name),
         .extra = {},
         .isCancelled = isCancelled});
    AssemblyRun run;
    TakeMessages(run, source, std::move(files.messages));
    run.failure = files.failure;
    if (run.failure.empty() && !files.hasErrors && !files.isCancelled) {
        run.failure = ReasonToRefuse(files, model);
    }
    const bool isListed =
        files.listing.empty() ||
        WriteFileOrInform(dialogs, source.PathWithExtension(".lst"), files.listing);
    if (run.failure.empty() && !files.hasErrors && !files.isCancelled) {
        run.remark = RemarkOnProcessor(*models::FindModelAsWritten(files.cod.processor), model);
        run.isWritten = isListed && WriteBytesOrInform(dialogs, codPath, files.codBytes) &&
                        WriteFileOrInform(dialogs, hexPath, files.hex);
        if (ChecksProgram(workbench.Settings().Store())) {
            AddFindings(run, workbench, source.Name(), Sourced(files, source, model));
        }
    }
    run.listing = std::move(files.listing);
    return run;
}

}  // namespace corvane::app
