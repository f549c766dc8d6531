#include "project/check_messages.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "common/number_text.h"
#include "common/text.h"

namespace corvane::project {

namespace {

using common::Severity;

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

}  // namespace

RuleSet UsualRules() {
    return RuleSet().set().reset(IndexOf(check::Rule::Unreachable));
}

std::vector<common::Diagnostic> CheckMessages(const std::string& file,
                                              const SourcedProgram& checked,
                                              const check::Findings& findings,
                                              const RuleSet& rules) {
    std::vector<common::Diagnostic> messages;
    const auto lineOf = [&checked](int address) -> const std::optional<SourceLine>& {
        return checked.lines[static_cast<std::size_t>(address)];
    };
    const auto add = [&](int address, Severity severity, const std::string& text) {
        const std::optional<SourceLine>& line = lineOf(address);
        messages.push_back({.file = line ? line->file : file + ":" + common::Hex4(address),
                            .line = line ? line->number : 0,
                            .severity = severity,
                            .text = text});
    };
    for (const check::Finding& finding : findings.list) {
        const std::optional<SourceLine>& line = lineOf(finding.address);
        if (!rules.test(IndexOf(finding.rule)) || (line && IsIgnored(line->text, finding.rule))) {
            continue;
        }
        const bool isNote = finding.rule == check::Rule::Unreachable;
        add(finding.address, isNote ? Severity::Note : Severity::Warning,
            finding.text + " [" + std::string(check::RuleName(finding.rule)) + "]");
        for (const check::Note& note : finding.path) {
            add(note.address, Severity::Note, note.text);
        }
    }
    if (!findings.isComplete) {
        messages.push_back({.file = file,
                            .severity = Severity::Note,
                            .text = "The program has too many paths to follow them all."});
    }
    return messages;
}

}  // namespace corvane::project
