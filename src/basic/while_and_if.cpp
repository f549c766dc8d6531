// While .. Wend and If .. Else .. Endif
#include <optional>
#include <utility>

#include "basic/condition.h"
#include "basic/statements.h"

namespace corvane::basic {

namespace {

// The words between "While" and the end, or between "If" and "Then".
std::optional<Condition> WhileCondition(const Words& words) {
    return words[0] == "While" ? ReadCondition(words, 1, words.count - 1) : std::nullopt;
}

std::optional<Condition> IfCondition(const Words& words) {
    if (words.count < 2 || words[0] != "If" || words[words.count - 1] != "Then") {
        return std::nullopt;
    }
    return ReadCondition(words, 1, words.count - 2);
}

}  // namespace

bool IsWhile(const Words& words) {
    return WhileCondition(words).has_value();
}

Problem TranslateWhile(Translation& translation, const Words& words) {
    OpenWhile open;
    open.topLabel = translation.labels.NewLabel();
    open.exitLabel = translation.labels.NewLabel();
    translation.code.LabelLine(open.topLabel);
    const Problem problem =
        JumpIfFalse(translation, *WhileCondition(words), open.exitLabel, open.exitBank);
    translation.openWhiles.push_back(std::move(open));
    return problem;
}

bool IsWend(const Words& words) {
    return Matches(words, {"Wend"});
}

Problem TranslateWend(Translation& translation, const Words& /*words*/) {
    if (translation.openWhiles.empty()) {
        return "Wend without While.";
    }
    const OpenWhile& open = translation.openWhiles.back();
    translation.code.Goto(open.topLabel);
    translation.code.LabelLineFromBank(open.exitLabel, open.exitBank);
    translation.openWhiles.pop_back();
    return kNoProblem;
}

bool IsIf(const Words& words) {
    return IfCondition(words).has_value();
}

Problem TranslateIf(Translation& translation, const Words& words) {
    OpenIf open;
    open.falseLabel = translation.labels.NewLabel();
    const Problem problem =
        JumpIfFalse(translation, *IfCondition(words), open.falseLabel, open.falseBank);
    translation.openIfs.push_back(std::move(open));
    return problem;
}

bool IsElse(const Words& words) {
    return Matches(words, {"Else"});
}

Problem TranslateElse(Translation& translation, const Words& /*words*/) {
    if (translation.openIfs.empty()) {
        return "Else without If.";
    }
    OpenIf& open = translation.openIfs.back();
    if (!open.endLabel.empty()) {
        return "Duplicate Else.";
    }
    open.endLabel = translation.labels.NewLabel();
    translation.code.Goto(open.endLabel);
    translation.code.LabelLineFromBank(open.falseLabel, open.falseBank);
    return kNoProblem;
}

bool IsEndif(const Words& words) {
    return Matches(words, {"Endif"});
}

Problem TranslateEndif(Translation& translation, const Words& /*words*/) {
    if (translation.openIfs.empty()) {
        return "Endif without If.";
    }
    const OpenIf& open = translation.openIfs.back();
    if (open.endLabel.empty()) {
        translation.code.LabelLineFromBank(open.falseLabel, open.falseBank);
    } else {
        translation.code.LabelLine(open.endLabel);
    }
    translation.openIfs.pop_back();
    return kNoProblem;
}

}  // namespace corvane::basic
