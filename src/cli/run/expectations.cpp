#include "cli/run/expectations.h"

#include <utility>

namespace corvane::cli {

namespace {

using ExpressionResult = common::Result<inspect::Expression>;

ExpressionResult ReadExpression(const char* option, const std::string& text,
                                const inspect::Language& language) {
    auto expression = inspect::ParseExpression(text, language);
    if (expression) {
        return ExpressionResult::Success(*std::move(expression.value));
    }
    return ExpressionResult::Failure("corvane-cli: " + std::string(option) + " '" + text +
                                     "', column " + std::to_string(expression.error.column) + ": " +
                                     expression.error.message);
}

}  // namespace

common::Result<Expectations> Expectations::Read(const ExpectationOptions& options,
                                                const inspect::Language& language) {
    using ReadResult = common::Result<Expectations>;
    Expectations expectations;
    expectations.hasUntil_ = !options.until.empty();
    expectations.faults_ = options.faults;
    std::vector<std::pair<const char*, std::string>> texts;
    for (const std::string& text : options.never) {
        texts.emplace_back("--never", text);
    }
    if (expectations.hasUntil_) {
        texts.emplace_back("--until", options.until);
    }
    for (const auto& [option, text] : texts) {
        ExpressionResult expression = ReadExpression(option, text, language);
        if (!expression) {
            return ReadResult::Failure(std::move(expression.error));
        }
        expectations.conditions_.push_back({*std::move(expression.value), true});
    }
    for (const std::string& text : options.expected) {
        ExpressionResult expression = ReadExpression("--expect", text, language);
        if (!expression) {
            return ReadResult::Failure(std::move(expression.error));
        }
        expectations.expected_.push_back(*std::move(expression.value));
    }
    return ReadResult::Success(std::move(expectations));
}

void Expectations::LookAt(inspect::ObservedRun& run, inspect::FaultFinder& faults) const {
    if (faults_.any()) {
        run.Add(faults);
    }
    for (const inspect::Condition& condition : conditions_) {
        run.Want(condition.expression.quantities);
    }
    for (const inspect::Expression& expression : expected_) {
        run.Want(expression.quantities);
    }
    run.SetConditions(conditions_);
}

std::vector<std::string> Expectations::Failures(const inspect::Pause& end,
                                                const inspect::FaultFinder& faults,
                                                const inspect::Scene& scene) const {
    if (end.reason == inspect::PauseReason::Observer) {
        return {inspect::FaultText(*faults.Found(), scene)};
    }
    const bool endedByCondition = end.reason == inspect::PauseReason::Condition;
    const std::size_t until = conditions_.size() - 1;
    if (endedByCondition && (!hasUntil_ || end.index != until)) {
        return {
            inspect::FailureText("never ", conditions_[end.index].expression, end.error, scene)};
    }
    if (hasUntil_ && (!endedByCondition || end.error != nullptr)) {
        return {inspect::FailureText("until ", conditions_[until].expression, end.error, scene)};
    }
    std::vector<std::string> failures;
    for (const inspect::Expression& expression : expected_) {
        const inspect::Evaluation now = inspect::Evaluate(expression, scene.moment);
        if (now.error != nullptr || now.value == 0) {
            failures.push_back(inspect::FailureText("", expression, now.error, scene));
        }
    }
    return failures;
}

}  // namespace corvane::cli
