#include "cli/commands/disassemble_command.h"

#include <array>
#include <optional>
#include <span>

#include "cli/diagnostics.h"
#include "cli/output.h"
#include "cli/source_input.h"
#include "disasm/listing.h"
#include "project/hex_file.h"

namespace corvane::cli {

CommandResult Disassemble(const DisassembleOptions& options) {
    if (const auto error = WrongKind(options.program, {project::ProgramKind::Hex});
        error && !project::IsOfUnnamedKind(options.program)) {
        return WrongUsage(*error);
    }
    if (const auto conflict =
            OutputConflict(std::array{options.program}, std::array{options.listingFile})) {
        return WrongUsage(*conflict);
    }
    project::Messages messages;
    const std::optional<loader::Program> program =
        project::ReadHexFile(options.program, *options.model.model, messages);
    Report(messages);
    if (!program) {
        return Refused("");
    }
    if (program->loadedWords == 0) {
        return Refused(ErrorText(options.program, "No program loaded."));
    }
    const auto loaded =
        std::span(program->words).first(static_cast<std::size_t>(program->loadedWords));
    const std::optional<std::string> error =
        WriteOutput(options.listingFile,
                    disasm::DisassembleProgram(loaded, options.withoutOpcodes
                                                           ? disasm::ListingFormat::WithoutOpcodes
                                                           : disasm::ListingFormat::WithOpcodes));
    return error ? Refused(*error) : CommandResult{};
}

}  // namespace corvane::cli
