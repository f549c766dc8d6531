#include "cli/commands/assemble_command.h"

#include <array>
#include <filesystem>
#include <initializer_list>
#include <system_error>

#include "cli/diagnostics.h"
#include "cli/interrupt.h"
#include "cli/output.h"
#include "cli/source_input.h"
#include "common/text_file.h"
#include "project/build.h"

namespace corvane::cli {

namespace fs = std::filesystem;

std::optional<std::string> RemoveOldResult(const std::string& hexFile, const std::string& source) {
    std::error_code error;
    if (fs::exists(source, error) && fs::is_regular_file(hexFile, error) &&
        !fs::remove(hexFile, error)) {
        return ErrorText(hexFile, error.message());
    }
    return std::nullopt;
}

namespace {

// Those that there are, each in a line of its own.
std::string JoinedLines(std::initializer_list<std::optional<std::string>> lines) {
    std::string joined;
    for (const std::optional<std::string>& line : lines) {
        joined += line ? (joined.empty() ? "" : "\n") + *line : "";
    }
    return joined;
}

// Beside the .hex file, where it is looked for.
std::string CodFileOf(const AssembleOptions& options, const std::string& hexFile) {
    return hexFile == "-" ? project::NameBeside(options.source, ".cod")
                          : fs::path(hexFile).replace_extension(".cod").string();
}

CommandResult AssembleWithGpasm(const AssembleOptions& options, const std::string& hexFile,
                                const std::string& listingFile) {
    const std::string codFile = CodFileOf(options, hexFile);
    if (options.configurationWord) {
        return WrongUsage(ErrorText(options.source, "A source for gpasm has its own __CONFIG."));
    }
    if (const auto conflict =
            OutputConflict(std::array{options.source}, std::array{hexFile, listingFile, codFile})) {
        return WrongUsage(*conflict);
    }
    CatchInterrupts();
    project::AssemblerChoice assembler = options.assembler;
    assembler.isCancelled = [] { return IsInterrupted(); };
    project::Messages messages;
    const project::GpasmBuild build =
        project::BuildWithGpasm(options.source, options.model, assembler, messages);
    Report(messages);
    const std::string& listing = build.files.listing;
    const std::optional<std::string> listingError =
        listing.empty() ? std::nullopt : WriteOutput(listingFile, listing);
    if (!build.program) {
        return {build.files.isCancelled ? Ending::Interrupted : Ending::Refused,
                JoinedLines({listingError, RemoveOldResult(hexFile, options.source),
                             RemoveOldResult(codFile, options.source)})};
    }
    if (listingError) {
        return Refused(*listingError);
    }
    if (const auto error = common::WriteTextFile(codFile, build.files.codBytes)) {
        return Refused(ErrorText(codFile, *error));
    }
    const std::optional<std::string> hexError = WriteOutput(hexFile, build.files.hex);
    return hexError ? Refused(*hexError) : CommandResult{};
}

}  // namespace

CommandResult Assemble(const AssembleOptions& options) {
    if (const auto error = WrongKind(options.source, {project::ProgramKind::Assembler})) {
        return WrongUsage(*error);
    }
    const std::string hexFile =
        options.hexFile.empty() ? project::NameBeside(options.source, ".hex") : options.hexFile;
    const std::string listingFile = options.listingFile.empty()
                                        ? project::NameBeside(options.source, ".lst")
                                        : options.listingFile;
    if (project::IsForGpasm(options.assembler, options.source)) {
        return AssembleWithGpasm(options, hexFile, listingFile);
    }
    if (const auto conflict =
            OutputConflict(std::array{options.source, project::ModelFilePath(options.model)},
                           std::array{hexFile, listingFile})) {
        return WrongUsage(*conflict);
    }
    const std::optional<SourceInput> input = ReadSourceInput(options.model, options.source);
    if (!input) {
        return Refused(RemoveOldResult(hexFile, options.source).value_or(""));
    }
    project::Messages messages;
    const assembler::Assembly assembly = project::AssembleText(
        options.source, input->text, input->modelFile,
        options.configurationWord.value_or(options.model.model->defaultConfigurationWord),
        messages);
    Report(messages);
    const std::optional<std::string> listingError = WriteOutput(listingFile, assembly.listing);
    if (assembly.errorCount > 0) {
        return Refused(JoinedLines({listingError, RemoveOldResult(hexFile, options.source)}));
    }
    if (listingError) {
        return Refused(*listingError);
    }
    const std::optional<std::string> hexError = WriteOutput(hexFile, assembly.hex);
    return hexError ? Refused(*hexError) : CommandResult{};
}

}  // namespace corvane::cli
