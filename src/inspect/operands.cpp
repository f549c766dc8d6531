// The operands of an expression: numbers, names and what may stand behind a name.
#include <algorithm>
#include <array>
#include <optional>

#include "common/text.h"
#include "inspect/parser.h"

namespace corvane::inspect {

namespace {

struct Word {
    std::string_view name;
    QuantityKind kind;
};

constexpr auto kProcessorNames = std::to_array<Word>({{"W", QuantityKind::W},
                                                      {"PC", QuantityKind::Pc},
                                                      {"CLOCKS", QuantityKind::Clocks},
                                                      {"INSTRUCTIONS", QuantityKind::Instructions},
                                                      {"STEPS", QuantityKind::Steps},
                                                      {"DEPTH", QuantityKind::Depth}});
constexpr auto kMemories = std::to_array<Word>(
    {{"RAM", QuantityKind::Ram}, {"EEPROM", QuantityKind::Eeprom}, {"STACK", QuantityKind::Stack}});
constexpr auto kMeasurements = std::to_array<Word>({{"HIGH", QuantityKind::PinHigh},
                                                    {"LOW", QuantityKind::PinLow},
                                                    {"PERIOD", QuantityKind::PinPeriod},
                                                    {"EDGES", QuantityKind::PinEdges},
                                                    {"COUNT", QuantityKind::Count}});
constexpr auto kLanguageWords = std::to_array<std::string_view>({"AND", "OR", "NOT", "IN"});

template <typename Words>
std::optional<QuantityKind> FindWord(const Words& words, std::string_view name) {
    const std::string upper = common::ToUpper(name);
    const auto word = std::find_if(words.begin(), words.end(),
                                   [&](const Word& row) { return row.name == upper; });
    return word == words.end() ? std::nullopt : std::optional(word->kind);
}

bool IsLanguageWord(std::string_view name) {
    return std::find(kLanguageWords.begin(), kLanguageWords.end(), common::ToUpper(name)) !=
           kLanguageWords.end();
}

std::string Quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

}  // namespace

bool Parser::Primary() {
    Peek(true);
    if (token_.kind == TokenKind::Number) {
        return Number();
    }
    if (token_.kind == TokenKind::Name && !IsLanguageWord(token_.text)) {
        return NameWithTail();
    }
    if (token_.kind == TokenKind::Sign && token_.text == "@") {
        return AddressOf();
    }
    if (token_.kind != TokenKind::Sign || token_.text != "(") {
        return FailHere("A number, a name or '(' is expected here.");
    }
    Take();
    return Nested(&Parser::Or) && (TakeSign(")") || FailHere("')' is missing."));
}

bool Parser::Number() {
    const Token number = token_;
    Take();
    Peek();
    if (token_.kind == TokenKind::Name && IsUnit(token_.text)) {
        const auto clocks = ClocksIn(number.number, token_.text, language_.clock);
        Take();
        return clocks ? EmitNumber(*clocks) : Fail(number.position, "The time is too long.");
    }
    if (number.number.decimals > 0) {
        return Fail(number.position, "A number with a fraction needs a unit.");
    }
    return EmitNumber(number.number.digits);
}

bool Parser::AddressOf() {
    const std::size_t begin = token_.position;
    const std::size_t codeBegin = expression.code.size();
    Take();
    Peek(true);
    const Meaning* meaning =
        token_.kind == TokenKind::Name ? language_.names.Find(token_.text) : nullptr;
    if (meaning == nullptr || !meaning->address) {
        return FailHere("Behind '@' stands the name of a label, variable or register.");
    }
    Take();
    const bool done = EmitNumber(*meaning->address);
    NoteName(begin, codeBegin);
    return done;
}

// A word of the language counts as one only where it can: "count" is also a good variable's name.
bool Parser::NameWithTail() {
    const Token name = token_;
    const std::size_t codeBegin = expression.code.size();
    Take();
    const std::optional<QuantityKind> memory = FindWord(kMemories, name.text);
    const std::optional<QuantityKind> measured = FindWord(kMeasurements, name.text);
    bool done = false;
    if (memory && TakeSign("[")) {
        done = Indexed(*memory);
    } else if (measured && TakeSign("(")) {
        done = *measured == QuantityKind::Count ? Count() : Measured(*measured);
    } else {
        done = PlainName(name);
    }
    NoteName(name.position, codeBegin);
    return done;
}

bool Parser::PlainName(const Token& name) {
    if (const auto kind = FindWord(kProcessorNames, name.text)) {
        return TakeSign(".") ? BitOf(name, {*kind}) : EmitLoad({*kind});
    }
    const Meaning* meaning = language_.names.Find(name.text);
    if (meaning == nullptr) {
        const bool isBit = language_.names.BitNumber(name.text).has_value();
        return Fail(name.position, isBit ? Quoted(name.text) +
                                               " is no name by itself; a bit is REGISTER." +
                                               std::string(name.text) + "."
                                         : "There is no " + Quoted(name.text) + ".");
    }
    if (TakeSign(".")) {
        return BitOf(name, meaning->quantity.value_or(Quantity{QuantityKind::Count}));
    }
    return meaning->quantity ? EmitLoad(*meaning->quantity) : EmitNumber(meaning->number);
}

bool Parser::BitOf(const Token& name, const Quantity& whole) {
    int bit = 0;
    switch (whole.kind) {
        case QuantityKind::Cell:
            return BitNumber(bit, 7) && EmitLoad({QuantityKind::CellBit, whole.place, bit});
        case QuantityKind::CellPair:
            return PartOfWord(whole);
        case QuantityKind::W:
            return BitNumber(bit, 7) && EmitLoad(whole) && EmitNumber(bit) &&
                   Emit({Operator::ShiftRight}, -1) && EmitNumber(1) && Emit({Operator::And}, -1);
        default:
            return Fail(name.position, Quoted(name.text) + " is no register and has no bits.");
    }
}

bool Parser::BitNumber(int& bit, int highest) {
    Peek(true);
    std::optional<std::int64_t> number;
    if (token_.kind == TokenKind::Number && token_.number.decimals == 0) {
        number = token_.number.digits;
    } else if (token_.kind == TokenKind::Name) {
        number = language_.names.BitNumber(token_.text);
        if (!number) {
            return FailHere("There is no bit " + Quoted(token_.text) + ".");
        }
    }
    if (!number || *number < 0 || *number > highest) {
        return FailHere("A bit is 0 to " + std::to_string(highest) + ".");
    }
    Take();
    bit = static_cast<int>(*number);
    return true;
}

bool Parser::PartOfWord(const Quantity& whole) {
    const std::string part = common::ToUpper(Peek(true).text);
    if (part == "LB" || part == "HB") {
        Take();
        return EmitLoad({QuantityKind::Cell, part == "LB" ? whole.place : whole.second});
    }
    int bit = 0;
    return BitNumber(bit, 15) &&
           EmitLoad({QuantityKind::CellBit, bit < 8 ? whole.place : whole.second, bit % 8});
}

bool Parser::Indexed(QuantityKind kind) {
    const std::size_t bracket = token_.position;
    const std::size_t begin = expression.code.size();
    if (!Nested(&Parser::Or)) {
        return false;
    }
    if (!TakeSign("]")) {
        return FailHere("']' is missing.");
    }
    if (ConstantValue(expression, begin)) {
        return ConstantIndex(bracket, {kind}, begin);
    }
    expression.quantities.push_back({kind, kAnyPlace});
    return Emit({Operator::LoadAtIndex, {kind, kAnyPlace}}, 0);
}

bool Parser::ConstantIndex(std::size_t bracket, Quantity quantity, std::size_t begin) {
    const Evaluation index = *ConstantValue(expression, begin);
    const IndexRange range = IndexesOf(quantity.kind, language_.names.Model());
    if (index.error != nullptr || index.value < range.lowest || index.value > range.highest) {
        token_.kind = TokenKind::Sign;
        return Fail(bracket, "The index is " + std::to_string(range.lowest) + " to " +
                                 std::to_string(range.highest) + ".");
    }
    quantity.place = static_cast<int>(index.value);
    if (quantity.kind == QuantityKind::Ram) {
        quantity = {QuantityKind::Cell, language_.names.CellAt(quantity.place)};
    }
    expression.code.resize(begin);
    --depth_;
    return EmitLoad(quantity);
}

bool Parser::Measured(QuantityKind kind) {
    Peek(true);
    const Meaning* meaning =
        token_.kind == TokenKind::Name ? language_.names.Find(token_.text) : nullptr;
    if (meaning == nullptr || !meaning->quantity ||
        meaning->quantity->kind != QuantityKind::PinLevel) {
        return FailHere("A pin's name is expected here.");
    }
    Take();
    return EmitLoad({kind, meaning->quantity->place, meaning->quantity->second}) &&
           (TakeSign(")") || FailHere("')' is missing."));
}

bool Parser::Count() {
    const std::size_t argument = Peek(true).position;
    const std::size_t begin = expression.code.size();
    if (!Nested(&Parser::Or)) {
        return false;
    }
    const std::optional<Evaluation> address = ConstantValue(expression, begin);
    if (!address || address->error != nullptr || address->value < 0 ||
        address->value >= core::kProgramCounterRange) {
        return Fail(argument, "A label or a program address is expected here.");
    }
    expression.code.resize(begin);
    --depth_;
    return EmitLoad({QuantityKind::Count, static_cast<int>(address->value)}) &&
           (TakeSign(")") || FailHere("')' is missing."));
}

// Names inside of a name's own text, as in ram[COUNT], are not told apart.
void Parser::NoteName(std::size_t textBegin, std::size_t codeBegin) {
    const auto inside = [codeBegin](const NamedPart& part) { return part.begin >= codeBegin; };
    std::erase_if(expression.names, inside);
    const std::string text(text_.substr(textBegin, position_ - textBegin));
    const std::string upper = common::ToUpper(text);
    const bool isKnown =
        std::any_of(expression.names.begin(), expression.names.end(),
                    [&](const NamedPart& part) { return common::ToUpper(part.text) == upper; });
    if (!isKnown) {
        expression.names.push_back({text, codeBegin, expression.code.size()});
    }
}

}  // namespace corvane::inspect
