#include "check/check.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "check/rules.h"

namespace corvane::check {

namespace {

// In the order of Rule.
constexpr std::array<std::string_view, kRuleCount> kRuleNames = {
    "bank", "page", "table", "stack", "runs-off", "isr-context", "unreachable"};

}  // namespace

std::string_view RuleName(Rule rule) {
    return kRuleNames[static_cast<std::size_t>(rule)];
}

std::optional<Rule> FindRule(std::string_view name) {
    const auto found = std::find(kRuleNames.begin(), kRuleNames.end(), name);
    return found == kRuleNames.end() ? std::nullopt
                                     : std::optional(static_cast<Rule>(found - kRuleNames.begin()));
}

Findings Check(const Program& program, const models::ModelDescription& description) {
    const Paths paths = FollowPaths(program);
    const Subject subject{program, description, paths};
    Findings findings;
    findings.isComplete = paths.isComplete;
    for (const auto find : {FindWrongBanks, FindWrongPages, FindWrongTables, FindStackFaults,
                            FindExits, FindLostContext, FindUnreachable}) {
        find(subject, findings.list);
    }
    std::stable_sort(findings.list.begin(), findings.list.end(),
                     [](const Finding& first, const Finding& second) {
                         return std::tie(first.address, first.rule) <
                                std::tie(second.address, second.rule);
                     });
    return findings;
}

}  // namespace corvane::check
