#include "cli/assemble_command.h"

#include <array>
#include <filesystem>
#include <system_error>

#include "cli/diagnostics.h"
#include "cli/output.h"
#include "cli/source_file.h"
#include "cli/translation.h"

namespace corvane::cli {

namespace fs = std::filesystem;

namespace {

// An older file must not be mistaken for the result of a failed assembly. Devices stay.
std::string RemoveResult(const std::string& hexFile) {
    std::error_code error;
    if (fs::is_regular_file(hexFile, error) && !fs::remove(hexFile, error)) {
        return "\n" + ErrorText(hexFile, error.message());
    }
    return "";
}

}  // namespace

CommandResult Assemble(const AssembleOptions& options) {
    const std::string hexFile =
        options.hexFile.empty() ? NameBeside(options.source, ".hex") : options.hexFile;
    const std::string listingFile =
        options.listingFile.empty() ? NameBeside(options.source, ".lst") : options.listingFile;
    if (const auto conflict =
            OutputConflict(std::array{options.source}, std::array{hexFile, listingFile})) {
        return WrongUsage(*conflict);
    }
    const common::Result<SourceInput> input = ReadSourceInput(options.model, options.source);
    if (!input) {
        return Refused(input.error);
    }
    const assembler::Assembly assembly = AssembleText(
        options.source, input->text, input->modelFile,
        options.configurationWord.value_or(options.model.model->defaultConfigurationWord));
    const std::optional<std::string> listingError = WriteOutput(listingFile, assembly.listing);
    if (assembly.errorCount > 0) {
        return Refused(AssemblyErrors(options.source, assembly) +
                       (listingError ? "\n" + *listingError : "") + RemoveResult(hexFile));
    }
    if (listingError) {
        return Refused(*listingError);
    }
    const std::optional<std::string> hexError = WriteOutput(hexFile, assembly.hex);
    return hexError ? Refused(*hexError) : CommandResult{};
}

}  // namespace corvane::cli
