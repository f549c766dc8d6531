#include <algorithm>
#include <array>
#include <cstdint>

#include "inspect/expression.h"
#include "inspect/parser.h"

namespace corvane::inspect {

namespace {

using Unsigned = std::uint64_t;

constexpr const char* kDivisionByZero = "division by 0";
constexpr const char* kBadShift = "a shift by less than 0 or more than 63";
constexpr const char* kBadIndex = "an index out of range";

std::int64_t Wrapped(Unsigned value) {
    return static_cast<std::int64_t>(value);
}

// The largest negative number has no positive counterpart: -1 as a divisor only negates.
Evaluation Divided(std::int64_t a, std::int64_t b) {
    if (b == 0) {
        return {0, kDivisionByZero};
    }
    return {b == -1 ? Wrapped(-static_cast<Unsigned>(a)) : a / b};
}

Evaluation Remainder(std::int64_t a, std::int64_t b) {
    if (b == 0) {
        return {0, kDivisionByZero};
    }
    return {b == -1 ? 0 : a % b};
}

Evaluation Shifted(Operator op, std::int64_t a, std::int64_t b) {
    if (b < 0 || b > 63) {
        return {0, kBadShift};
    }
    return {op == Operator::ShiftRight ? a >> b : Wrapped(static_cast<Unsigned>(a) << b)};
}

Evaluation Calculated(Operator op, std::int64_t a, std::int64_t b) {
    const auto left = static_cast<Unsigned>(a);
    const auto right = static_cast<Unsigned>(b);
    switch (op) {
        case Operator::Multiply:
            return {Wrapped(left * right)};
        case Operator::Divide:
            return Divided(a, b);
        case Operator::Remainder:
            return Remainder(a, b);
        case Operator::Add:
            return {Wrapped(left + right)};
        case Operator::Subtract:
            return {Wrapped(left - right)};
        case Operator::ShiftLeft:
        case Operator::ShiftRight:
            return Shifted(op, a, b);
        case Operator::And:
            return {a & b};
        case Operator::ExclusiveOr:
            return {a ^ b};
        default:
            return {a | b};
    }
}

bool Compared(Operator op, std::int64_t a, std::int64_t b) {
    switch (op) {
        case Operator::Equal:
            return a == b;
        case Operator::NotEqual:
            return a != b;
        case Operator::Less:
            return a < b;
        case Operator::LessOrEqual:
            return a <= b;
        case Operator::Greater:
            return a > b;
        default:
            return a >= b;
    }
}

class Evaluator {
  public:
    // Without a moment only numbers can be worked out.
    explicit Evaluator(const Moment* moment) : moment_(moment) {}

    Evaluation Run(const Expression& expression, std::size_t begin, std::size_t end) {
        const Operation* const code = expression.code.data();
        for (std::size_t i = begin; i < end; ++i) {
            const Operation& operation = code[i];
            if (operation.op == Operator::Load) {
                stack_[size_++] = ValueOf(operation.quantity, *moment_);
            } else if (operation.op == Operator::Number) {
                stack_[size_++] = operation.number;
            } else if (operation.op == Operator::SkipIfFalse ||
                       operation.op == Operator::SkipIfTrue) {
                i = Skips(operation.op) ? static_cast<std::size_t>(operation.number) : i;
            } else if (const char* error = Apply(operation)) {
                return {0, error};
            }
        }
        return {stack_[0]};
    }

  private:
    std::int64_t& Top() { return stack_[size_ - 1]; }

    // Whether the left side decides; then it is the result, else the right one will be.
    bool Skips(Operator op) {
        const bool isTrue = Top() != 0;
        if (isTrue == (op == Operator::SkipIfTrue)) {
            Top() = isTrue ? 1 : 0;
            return true;
        }
        --size_;
        return false;
    }

    const char* Apply(const Operation& operation) {
        switch (operation.op) {
            case Operator::LoadAtIndex:
                return LoadAtIndex(operation);
            case Operator::Negate:
                Top() = Wrapped(-static_cast<Unsigned>(Top()));
                return nullptr;
            case Operator::Complement:
                Top() = ~Top();
                return nullptr;
            case Operator::Not:
                Top() = Top() == 0 ? 1 : 0;
                return nullptr;
            case Operator::ToTruth:
                Top() = Top() != 0 ? 1 : 0;
                return nullptr;
            case Operator::InRange:
                size_ -= 2;
                Top() = Top() >= stack_[size_] && Top() <= stack_[size_ + 1] ? 1 : 0;
                return nullptr;
            default:
                return ApplyToTwo(operation.op);
        }
    }

    const char* ApplyToTwo(Operator op) {
        --size_;
        const std::int64_t right = stack_[size_];
        if (op >= Operator::Equal) {
            Top() = Compared(op, Top(), right) ? 1 : 0;
            return nullptr;
        }
        const Evaluation result = Calculated(op, Top(), right);
        Top() = result.value;
        return result.error;
    }

    const char* LoadAtIndex(const Operation& operation) {
        const IndexRange range = IndexesOf(operation.quantity.kind, *moment_->processor.model);
        if (Top() < range.lowest || Top() > range.highest) {
            return kBadIndex;
        }
        Quantity quantity = operation.quantity;
        quantity.place = static_cast<int>(Top());
        Top() = ValueOf(quantity, *moment_);
        return nullptr;
    }

    const Moment* moment_;
    std::array<std::int64_t, kDeepestStack> stack_;
    std::size_t size_ = 0;
};

}  // namespace

Evaluation Evaluate(const Expression& expression, const Moment& moment) {
    return Evaluator(&moment).Run(expression, 0, expression.code.size());
}

Evaluation Evaluate(const Expression& expression, const NamedPart& part, const Moment& moment) {
    return Evaluator(&moment).Run(expression, part.begin, part.end);
}

std::optional<Evaluation> ConstantValue(const Expression& expression, std::size_t begin) {
    const auto looks = [](const Operation& operation) {
        return operation.op == Operator::Load || operation.op == Operator::LoadAtIndex;
    };
    const auto first = expression.code.begin() + static_cast<std::ptrdiff_t>(begin);
    if (std::any_of(first, expression.code.end(), looks)) {
        return std::nullopt;
    }
    return Evaluator(nullptr).Run(expression, begin, expression.code.size());
}

}  // namespace corvane::inspect
