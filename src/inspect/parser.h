// From the text of an expression to its operations.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "inspect/expression.h"
#include "inspect/tokens.h"

namespace corvane::inspect {

// Recursive descent, one function for each rule. A function returns false after an error, which is
// the first one found.
class Parser {
  public:
    Parser(std::string_view text, const Language& language);

    bool ParseAll();

    Expression expression;
    std::optional<ExpressionError> error;

  private:
    using Rule = bool (Parser::*)();

    // Looks at the next token, and takes the one last looked at.
    const Token& Peek(bool operandExpected = false);
    void Take() { position_ = token_.position + token_.text.size(); }
    bool TakeWord(std::string_view upperWord);
    bool TakeSign(std::string_view sign);

    bool Fail(std::size_t position, std::string message);
    bool FailHere(std::string message) { return Fail(token_.position, std::move(message)); }

    bool Or() { return Decisions("OR", Operator::SkipIfTrue, &Parser::And); }
    bool And() { return Decisions("AND", Operator::SkipIfFalse, &Parser::Not); }
    bool Decisions(std::string_view word, Operator skip, Rule side);
    bool Not();
    bool Comparison();
    bool Range();
    bool Binary(std::size_t level);
    bool Unary();
    bool Primary();
    bool Number();
    bool NameWithTail();
    bool AddressOf();
    bool BitOf(const Token& name, const Quantity& whole);
    bool BitNumber(int& bit, int highest);
    bool PartOfWord(const Quantity& whole);
    bool Indexed(QuantityKind kind);
    bool ConstantIndex(std::size_t bracket, Quantity quantity, std::size_t begin);
    bool PlainName(const Token& name);
    bool Measured(QuantityKind kind);
    bool Count();
    bool Nested(Rule rule);

    bool Emit(const Operation& operation, int stackChange);
    bool EmitLoad(const Quantity& quantity);
    bool EmitNumber(std::int64_t number) { return Emit({Operator::Number, {}, number}, 1); }
    void NoteName(std::size_t textBegin, std::size_t codeBegin);

    const Language& language_;
    std::string_view text_;
    std::size_t position_ = 0;
    Token token_;
    std::size_t depth_ = 0;  // numbers on the stack
    int nesting_ = 0;
};

// The number that the operations from this one on yield; nothing when they look at the chip.
std::optional<Evaluation> ConstantValue(const Expression& expression, std::size_t begin);

}  // namespace corvane::inspect
