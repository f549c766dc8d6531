#include "cli/check_command.h"

#include <algorithm>
#include <bitset>
#include <optional>
#include <string_view>

#include "cli/checked_program.h"
#include "cli/diagnostics.h"
#include "cli/output.h"
#include "cli/source_file.h"
#include "common/number_text.h"
#include "common/text.h"

namespace corvane::cli {

namespace {

using RuleSet = std::bitset<check::kRuleCount>;

std::size_t IndexOf(check::Rule rule) {
    return static_cast<std::size_t>(rule);
}

// The error is the word that is no rule.
common::Result<RuleSet> ReadRules(std::string_view list) {
    RuleSet rules;
    if (list.empty() || list == "all") {
        rules.set();
        rules.set(IndexOf(check::Rule::Unreachable), !list.empty());
        return common::Result<RuleSet>::Success(rules);
    }
    for (bool isLast = false; !isLast;) {
        const std::size_t comma = list.find(',');
        const std::string_view name = common::Trim(list.substr(0, comma));
        const std::optional<check::Rule> rule = check::FindRule(common::ToLower(name));
        if (!rule) {
            return common::Result<RuleSet>::Failure(std::string(name));
        }
        rules.set(IndexOf(*rule));
        isLast = comma == std::string_view::npos;
        list.remove_prefix(isLast ? list.size() : comma + 1);
    }
    return common::Result<RuleSet>::Success(rules);
}

// True when the line's comment says "! ignore" and the rule's name.
bool IsIgnored(std::string_view line, check::Rule rule) {
    constexpr std::string_view kIgnore = "ignore";
    const std::size_t mark = std::min(line.find(";!"), line.find("'!"));
    if (mark == std::string_view::npos) {
        return false;
    }
    const std::string comment = common::ToLower(common::Trim(line.substr(mark + 2)));
    if (!comment.starts_with(kIgnore)) {
        return false;
    }
    std::string names = comment.substr(kIgnore.size());
    std::replace_if(
        names.begin(), names.end(), [](char c) { return c == ',' || c == '\t'; }, ' ');
    return (names + " ").find(" " + std::string(check::RuleName(rule)) + " ") != std::string::npos;
}

// Writes findings as a person reads them.
class Report {
  public:
    Report(std::string file, const project::SourcedProgram& checked)
        : file_(std::move(file)), checked_(checked) {}

    void Add(const check::Finding& finding) {
        const bool isNote = finding.rule == check::Rule::Unreachable;
        AddLine(finding.address, isNote ? "note" : "warning",
                finding.text + " [" + std::string(check::RuleName(finding.rule)) + "]");
        for (const check::Note& note : finding.path) {
            AddLine(note.address, "note", note.text);
        }
        hasWarnings_ = hasWarnings_ || !isNote;
    }

    void AddNote(std::string_view text) { text_ += file_ + ": note: " + std::string(text) + "\n"; }

    const std::string& Text() const { return text_; }
    bool HasWarnings() const { return hasWarnings_; }

  private:
    void AddLine(int address, std::string_view severity, std::string_view text) {
        const std::optional<project::SourceLine>& line =
            checked_.lines[static_cast<std::size_t>(address)];
        text_ += line ? line->file + ":" + std::to_string(line->number)
                      : file_ + ":" + common::Hex4(address);
        text_.append(": ").append(severity).append(": ").append(text).append("\n");
    }

    std::string file_;
    const project::SourcedProgram& checked_;
    std::string text_;
    bool hasWarnings_ = false;
};

CommandResult WriteReport(const std::string& file, const project::SourcedProgram& checked,
                          const check::Findings& findings, const RuleSet& rules) {
    Report report(file, checked);
    for (const check::Finding& finding : findings.list) {
        const std::optional<project::SourceLine>& line =
            checked.lines[static_cast<std::size_t>(finding.address)];
        if (rules.test(IndexOf(finding.rule)) && !(line && IsIgnored(line->text, finding.rule))) {
            report.Add(finding);
        }
    }
    if (!findings.isComplete) {
        report.AddNote("The program has too many paths to follow them all.");
    }
    if (const std::optional<std::string> error = WriteOutput("-", report.Text())) {
        return Refused(*error);
    }
    return {report.HasWarnings() ? Ending::Failed : Ending::Done, ""};
}

}  // namespace

CommandResult CheckProgram(const CheckOptions& options) {
    if (KindOf(options.program) == FileKind::Unknown) {
        return WrongUsage(ErrorText(options.program, "The name must end in .hex, .asm or .bas."));
    }
    const common::Result<RuleSet> rules = ReadRules(options.rules);
    if (!rules) {
        return WrongUsage("corvane-cli: There is no rule '" + rules.error +
                          "'; the rules are bank, page, table, stack, runs-off, isr-context and "
                          "unreachable.");
    }
    const common::Result<CheckedProgram, CommandResult> checked =
        ReadCheckedProgram({.file = {options.program, std::nullopt},
                            .model = options.model,
                            .assembler = options.assembler,
                            .withoutSource = options.withoutSource,
                            .clockFrequency = options.clockFrequency});
    if (!checked) {
        return checked.error;
    }
    const project::SourcedProgram& program = checked->program;
    return WriteReport(options.program, program,
                       check::Check(program.program, checked->modelFile.description), *rules);
}

}  // namespace corvane::cli
