#include "cli/assemble_command.h"

#include <array>
#include <filesystem>
#include <system_error>

#include "cli/diagnostics.h"
#include "cli/output.h"
#include "cli/source_file.h"
#include "cli/translation.h"
#include "common/text_file.h"

namespace corvane::cli {

namespace fs = std::filesystem;

std::string RemoveOldResult(const std::string& hexFile, const std::string& source) {
    std::error_code error;
    if (fs::exists(source, error) && fs::is_regular_file(hexFile, error) &&
        !fs::remove(hexFile, error)) {
        return "\n" + ErrorText(hexFile, error.message());
    }
    return "";
}

namespace {

// Beside the .hex file, where it is looked for.
std::string CodFileOf(const AssembleOptions& options, const std::string& hexFile) {
    return hexFile == "-" ? NameBeside(options.source, ".cod")
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
    const auto build = BuildWithGpasm(options.source, options.model, options.assembler);
    const std::string& listing = build ? build->files.listing : build.error.listing;
    const std::optional<std::string> listingError =
        listing.empty() ? std::nullopt : WriteOutput(listingFile, listing);
    if (!build) {
        CommandResult result = build.error.result;
        const auto add = [&result](const std::string& text) {
            result.message += result.message.empty() ? text.substr(text.empty() ? 0 : 1) : text;
        };
        add(listingError ? "\n" + *listingError : "");
        add(RemoveOldResult(hexFile, options.source));
        add(RemoveOldResult(codFile, options.source));
        return result;
    }
    if (listingError) {
        return Refused(*listingError);
    }
    if (const auto error = common::WriteTextFile(codFile, build->files.codBytes)) {
        return Refused(ErrorText(codFile, *error));
    }
    const std::optional<std::string> hexError = WriteOutput(hexFile, build->files.hex);
    return hexError ? Refused(*hexError) : CommandResult{};
}

}  // namespace

CommandResult Assemble(const AssembleOptions& options) {
    if (const auto error = WrongKind(options.source, {FileKind::Assembler})) {
        return WrongUsage(*error);
    }
    const std::string hexFile =
        options.hexFile.empty() ? NameBeside(options.source, ".hex") : options.hexFile;
    const std::string listingFile =
        options.listingFile.empty() ? NameBeside(options.source, ".lst") : options.listingFile;
    if (IsForGpasm(options.assembler, options.source)) {
        return AssembleWithGpasm(options, hexFile, listingFile);
    }
    if (const auto conflict =
            OutputConflict(std::array{options.source, ModelFilePath(options.model)},
                           std::array{hexFile, listingFile})) {
        return WrongUsage(*conflict);
    }
    const common::Result<SourceInput> input = ReadSourceInput(options.model, options.source);
    if (!input) {
        return Refused(input.error + RemoveOldResult(hexFile, options.source));
    }
    const assembler::Assembly assembly = AssembleText(
        options.source, input->text, input->modelFile,
        options.configurationWord.value_or(options.model.model->defaultConfigurationWord));
    const std::optional<std::string> listingError = WriteOutput(listingFile, assembly.listing);
    if (assembly.errorCount > 0) {
        return Refused(AssemblyErrors(options.source, assembly) +
                       (listingError ? "\n" + *listingError : "") +
                       RemoveOldResult(hexFile, options.source));
    }
    if (listingError) {
        return Refused(*listingError);
    }
    const std::optional<std::string> hexError = WriteOutput(hexFile, assembly.hex);
    return hexError ? Refused(*hexError) : CommandResult{};
}

}  // namespace corvane::cli
