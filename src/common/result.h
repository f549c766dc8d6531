// A value or the reason why there is none, and success or the reason why not.
#pragma once

#include <optional>
#include <string>
#include <utility>

namespace corvane::common {

template <typename Value, typename Error = std::string>
struct [[nodiscard]] Result {
    std::optional<Value> value;
    Error error{};  // meaningful only without a value

    explicit operator bool() const { return value.has_value(); }
    Value& operator*() { return *value; }
    const Value& operator*() const { return *value; }
    Value* operator->() { return &*value; }
    const Value* operator->() const { return &*value; }

    static Result Success(Value value) { return Result{std::move(value), {}}; }
    static Result Failure(Error error) { return Result{std::nullopt, std::move(error)}; }
};

struct [[nodiscard]] Status {
    bool isSuccess = true;
    std::string error{};  // meaningful only after a failure

    explicit operator bool() const { return isSuccess; }

    static Status Success() { return {}; }
    static Status Failure(std::string error) { return {false, std::move(error)}; }
};

}  // namespace corvane::common
