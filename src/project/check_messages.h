// What a check has found, as the messages that a person reads.
#pragma once

#include <bitset>
#include <string>
#include <vector>

#include "check/check.h"
#include "common/diagnostic.h"
#include "project/sourced_program.h"

namespace corvane::project {

using RuleSet = std::bitset<check::kRuleCount>;

// The place of a rule in such a set.
inline std::size_t IndexOf(check::Rule rule) {
    return static_cast<std::size_t>(rule);
}

// All but `unreachable`, which is told only when it is asked for.
RuleSet UsualRules();

// A warning for each finding of these rules, with its path in notes behind it. What the comment
// ";! ignore RULE" of its line silences is left out. The program's file is the name for words that
// no line has made: there the message's file is "FILE:HHHH" and the line 0.
std::vector<common::Diagnostic> CheckMessages(const std::string& file,
                                              const SourcedProgram& checked,
                                              const check::Findings& findings,
                                              const RuleSet& rules);

}  // namespace corvane::project
