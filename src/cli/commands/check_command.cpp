#include "cli/commands/check_command.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "cli/diagnostics.h"
#include "cli/output.h"
#include "cli/program_input.h"
#include "cli/source_input.h"
#include "common/diagnostic.h"
#include "common/text.h"
#include "project/check_messages.h"

namespace corvane::cli {

namespace {

using project::RuleSet;

// The error is the word that is no rule.
common::Result<RuleSet> ReadRules(std::string_view list) {
    if (list.empty() || list == "all") {
        return common::Result<RuleSet>::Success(list.empty() ? project::UsualRules()
                                                             : RuleSet().set());
    }
    RuleSet rules;
    for (bool isLast = false; !isLast;) {
        const std::size_t comma = list.find(',');
        const std::string_view name = common::Trim(list.substr(0, comma));
        const std::optional<check::Rule> rule = check::FindRule(common::ToLower(name));
        if (!rule) {
            return common::Result<RuleSet>::Failure(std::string(name));
        }
        rules.set(project::IndexOf(*rule));
        isLast = comma == std::string_view::npos;
        list.remove_prefix(isLast ? list.size() : comma + 1);
    }
    return common::Result<RuleSet>::Success(rules);
}

CommandResult WriteReport(const std::vector<common::Diagnostic>& messages) {
    std::string report;
    for (const common::Diagnostic& message : messages) {
        report += common::TextWithFile(message) + "\n";
    }
    if (const std::optional<std::string> error = WriteOutput("-", report)) {
        return Refused(*error);
    }
    const bool hasWarnings =
        std::any_of(messages.begin(), messages.end(), [](const common::Diagnostic& message) {
            return message.severity == common::Severity::Warning;
        });
    return {hasWarnings ? Ending::Failed : Ending::Done, ""};
}

}  // namespace

CommandResult CheckProgram(const CheckOptions& options) {
    if (project::KindOf(options.program) == project::ProgramKind::Unknown) {
        return WrongUsage(ErrorText(options.program, "The name must end in .hex, .asm or .bas."));
    }
    const common::Result<RuleSet> rules = ReadRules(options.rules);
    if (!rules) {
        return WrongUsage("corvane-cli: There is no rule '" + rules.error +
                          "'; the rules are bank, page, table, stack, runs-off, isr-context and "
                          "unreachable.");
    }
    const common::Result<project::LoadedProgram, CommandResult> loaded =
        LoadOrReport({.file = options.program,
                      .model = options.model,
                      .assembler = options.assembler,
                      .withoutSource = options.withoutSource,
                      .clockFrequency = options.clockFrequency});
    if (!loaded) {
        return loaded.error;
    }
    const project::SourcedProgram program = project::WithOperands(*loaded);
    return WriteReport(project::CheckMessages(
        options.program, program, check::Check(program.program, loaded->modelFile.description),
        *rules));
}

}  // namespace corvane::cli
