#include "basic/statements/statement.h"

namespace corvane::basic {

namespace {

using MaybeStatement = std::optional<Statement>;

// X = ..
MaybeStatement ReadWithTarget(const Words& words) {
    constexpr std::string_view kRootBegin = "Sqr(";
    constexpr std::string_view kRootEnd = ")";
    if (Matches(words, {kAnyWord, "=", kAnyWord})) {
        std::string_view value = words[2];
        if (!value.starts_with(kRootBegin) || !value.ends_with(kRootEnd)) {
            return Assignment{words[0], value};
        }
        value.remove_prefix(kRootBegin.size());
        value.remove_suffix(kRootEnd.size());
        return SquareRoot{words[0], value};
    }
    if (Matches(words, {kAnyWord, "=", "Not", kAnyWord})) {
        return Negation{words[0], words[3]};
    }
    if (Matches(words, {kAnyWord, "=", kAnyWord, kAnyWord, kAnyWord})) {
        if (const auto* const operation = FindArithmeticOperation(words[3])) {
            return Arithmetic{words[0], words[2], operation, words[4]};
        }
        if (const auto* const operation = FindBitOperation(words[3])) {
            return BitLogic{words[0], words[2], operation, words[4]};
        }
    }
    return std::nullopt;
}

MaybeStatement ReadDeclaration(const Words& words) {
    struct TypeName {
        std::string_view name;
        BasicType type;
    };
    constexpr std::array<TypeName, 3> kTypes = {
        {{"Bit", BasicType::Bit}, {"Byte", BasicType::Byte}, {"Word", BasicType::Word}}};
    if (!Matches(words, {"Dim", kAnyWord, "As", kAnyWord})) {
        return std::nullopt;
    }
    const TypeName* const row = FindRow(kTypes, words[3]);
    return row == nullptr ? MaybeStatement() : Declaration{words[1], row->type};
}

// The condition that the words behind the first are.
std::optional<Condition> ReadCondition(const Words& words, std::size_t count) {
    if (count == 1) {
        return BitTest{words[1], false};
    }
    if (count == 2 && words[1] == "Not") {
        return BitTest{words[2], true};
    }
    const Comparator* const comparator = count == 3 ? FindComparator(words[2]) : nullptr;
    return comparator == nullptr ? std::optional<Condition>()
                                 : Comparison{words[1], comparator, words[3]};
}

MaybeStatement ReadWhile(const Words& words) {
    const auto condition = ReadCondition(words, words.count - 1);
    return condition ? MaybeStatement(While{*condition}) : std::nullopt;
}

MaybeStatement ReadIf(const Words& words) {
    if (words.count < 2 || words[words.count - 1] != "Then") {
        return std::nullopt;
    }
    const auto condition = ReadCondition(words, words.count - 2);
    return condition ? MaybeStatement(If{*condition}) : std::nullopt;
}

MaybeStatement ReadFor(const Words& words) {
    const bool hasStep =
        Matches(words, {"For", kAnyWord, "=", kAnyWord, "To", kAnyWord, "Step", kAnyWord});
    if (!hasStep && !Matches(words, {"For", kAnyWord, "=", kAnyWord, "To", kAnyWord})) {
        return std::nullopt;
    }
    std::string_view step = hasStep ? words[7] : "1";
    const bool countsDown = step.starts_with('-');
    step.remove_prefix(countsDown ? 1 : 0);
    return For{words[1], words[3], words[5], step, countsDown};
}

template <typename Bare>
MaybeStatement ReadBare(const Words& words) {
    return words.count == 1 ? MaybeStatement(Bare{}) : std::nullopt;
}

template <typename OneWord>
MaybeStatement ReadOneWord(const Words& words) {
    return words.count == 2 ? MaybeStatement(OneWord{words[1]}) : std::nullopt;
}

// "Read 5, a": the comma is attached to the first word.
template <typename Access>
MaybeStatement ReadAccess(const Words& words) {
    std::string_view address = words[1];
    if (words.count != 3 || !address.ends_with(',')) {
        return std::nullopt;
    }
    address.remove_suffix(1);
    return Access{address, words[2]};
}

struct Keyword {
    std::string_view name;
    MaybeStatement (*read)(const Words& words);
};

constexpr std::array<Keyword, 12> kKeywords = {{
    {"Dim", ReadDeclaration},
    {"While", ReadWhile},
    {"Wend", ReadBare<Wend>},
    {"If", ReadIf},
    {"Else", ReadBare<Else>},
    {"Endif", ReadBare<Endif>},
    {"For", ReadFor},
    {"Next", ReadOneWord<Next>},
    {"Goto", ReadOneWord<Goto>},
    {"Read", ReadAccess<Read>},
    {"Write", ReadAccess<Write>},
    {"WaitMs", ReadOneWord<WaitMs>},
}};

}  // namespace

Statement ReadStatement(const Words& words) {
    if (words.count == 0) {
        return EmptyStatement();
    }
    // A word in front of "=" is no keyword.
    if (const MaybeStatement statement = ReadWithTarget(words)) {
        return *statement;
    }
    const Keyword* const keyword = FindRow(kKeywords, words[0]);
    const MaybeStatement statement = keyword == nullptr ? std::nullopt : keyword->read(words);
    return statement.value_or(UnknownStatement());
}

}  // namespace corvane::basic
