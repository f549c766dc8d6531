#include "inspect/parser.h"

#include <array>
#include <span>

#include "common/text.h"

namespace corvane::inspect {

namespace {

constexpr int kDeepestNesting = 50;

struct Sign {
    std::string_view text;
    Operator op;
};

constexpr auto kComparisons = std::to_array<Sign>({{"==", Operator::Equal},
                                                   {"!=", Operator::NotEqual},
                                                   {"<", Operator::Less},
                                                   {"<=", Operator::LessOrEqual},
                                                   {">", Operator::Greater},
                                                   {">=", Operator::GreaterOrEqual}});

// The binary operators that associate to the left, the weakest first.
constexpr auto kOr = std::to_array<Sign>({{"|", Operator::Or}});
constexpr auto kExclusiveOr = std::to_array<Sign>({{"^", Operator::ExclusiveOr}});
constexpr auto kAnd = std::to_array<Sign>({{"&", Operator::And}});
constexpr auto kShifts =
    std::to_array<Sign>({{"<<", Operator::ShiftLeft}, {">>", Operator::ShiftRight}});
constexpr auto kSums = std::to_array<Sign>({{"+", Operator::Add}, {"-", Operator::Subtract}});
constexpr auto kProducts = std::to_array<Sign>(
    {{"*", Operator::Multiply}, {"/", Operator::Divide}, {"%", Operator::Remainder}});
constexpr auto kLevels =
    std::to_array<std::span<const Sign>>({kOr, kExclusiveOr, kAnd, kShifts, kSums, kProducts});

const Sign* FindSign(std::span<const Sign> signs, const Token& token) {
    for (const Sign& sign : signs) {
        if (token.kind == TokenKind::Sign && token.text == sign.text) {
            return &sign;
        }
    }
    return nullptr;
}

bool IsWord(const Token& token, std::string_view upperWord) {
    return token.kind == TokenKind::Name && common::ToUpper(token.text) == upperWord;
}

bool Compares(const Token& token) {
    return FindSign(kComparisons, token) != nullptr || IsWord(token, "IN");
}

}  // namespace

Parser::Parser(std::string_view text, const Language& language) : language_(language), text_(text) {
    expression.text = text;
}

bool Parser::ParseAll() {
    if (!Or()) {
        return false;
    }
    return Peek().kind == TokenKind::End || FailHere("An operator is expected here.");
}

const Token& Parser::Peek(bool operandExpected) {
    return token_ = ReadToken(text_, position_, operandExpected);
}

bool Parser::TakeWord(std::string_view upperWord) {
    const bool isWord = IsWord(Peek(), upperWord);
    if (isWord) {
        Take();
    }
    return isWord;
}

bool Parser::TakeSign(std::string_view sign) {
    Peek();
    const bool isSign = token_.kind == TokenKind::Sign && token_.text == sign;
    if (isSign) {
        Take();
    }
    return isSign;
}

// A token that is none at all says itself what is wrong.
bool Parser::Fail(std::size_t position, std::string message) {
    if (token_.kind == TokenKind::Bad && token_.position == position) {
        message = token_.text;
    }
    const std::size_t column = common::CharacterCount(text_.substr(0, position)) + 1;
    error = {static_cast<int>(column), std::move(message)};
    return false;
}

bool Parser::Nested(Rule rule) {
    if (++nesting_ > kDeepestNesting) {
        return FailHere("The expression is nested too deeply.");
    }
    const bool done = (this->*rule)();
    --nesting_;
    return done;
}

// "and" and "or": each side but the last decides, or gives way to the next.
bool Parser::Decisions(std::string_view word, Operator skip, Rule side) {
    if (!(this->*side)()) {
        return false;
    }
    std::vector<std::size_t> skips;
    while (TakeWord(word)) {
        skips.push_back(expression.code.size());
        if (!Emit({skip}, -1) || !(this->*side)()) {
            return false;
        }
    }
    if (skips.empty()) {
        return true;
    }
    for (const std::size_t place : skips) {
        expression.code[place].number = static_cast<std::int64_t>(expression.code.size());
    }
    return Emit({Operator::ToTruth}, 0);
}

bool Parser::Not() {
    if (!IsWord(Peek(true), "NOT")) {
        return Comparison();
    }
    Take();
    return Nested(&Parser::Not) && Emit({Operator::Not}, 0);
}

bool Parser::Comparison() {
    if (!Binary(0)) {
        return false;
    }
    const Sign* sign = FindSign(kComparisons, Peek());
    if (sign != nullptr) {
        Take();
        if (!Binary(0) || !Emit({sign->op}, -1)) {
            return false;
        }
    } else if (TakeWord("IN")) {
        if (!Range()) {
            return false;
        }
    } else {
        return true;
    }
    return !Compares(Peek()) || FailHere("A comparison cannot follow another one.");
}

bool Parser::Range() {
    if (!Binary(0)) {
        return false;
    }
    if (!TakeSign("..")) {
        return FailHere("'in' needs two ends: LOWEST .. HIGHEST.");
    }
    return Binary(0) && Emit({Operator::InRange}, -2);
}

bool Parser::Binary(std::size_t level) {
    if (level == kLevels.size()) {
        return Unary();
    }
    if (!Binary(level + 1)) {
        return false;
    }
    while (const Sign* sign = FindSign(kLevels[level], Peek())) {
        Take();
        if (!Binary(level + 1) || !Emit({sign->op}, -1)) {
            return false;
        }
    }
    return true;
}

bool Parser::Unary() {
    Peek(true);
    const bool isMinus = token_.kind == TokenKind::Sign && token_.text == "-";
    const bool isTilde = token_.kind == TokenKind::Sign && token_.text == "~";
    if (!isMinus && !isTilde) {
        return Primary();
    }
    Take();
    return Nested(&Parser::Unary) && Emit({isMinus ? Operator::Negate : Operator::Complement}, 0);
}

bool Parser::Emit(const Operation& operation, int stackChange) {
    expression.code.push_back(operation);
    depth_ = depth_ + static_cast<std::size_t>(stackChange);
    return depth_ <= kDeepestStack || FailHere("The expression needs too many numbers at once.");
}

bool Parser::EmitLoad(const Quantity& quantity) {
    expression.quantities.push_back(quantity);
    return Emit({Operator::Load, quantity}, 1);
}

common::Result<Expression, ExpressionError> ParseExpression(std::string_view text,
                                                            const Language& language) {
    using ParseResult = common::Result<Expression, ExpressionError>;
    Parser parser(text, language);
    return parser.ParseAll() ? ParseResult::Success(std::move(parser.expression))
                             : ParseResult::Failure(*std::move(parser.error));
}

}  // namespace corvane::inspect
