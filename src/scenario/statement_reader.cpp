#include "scenario/statement_reader.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "common/text.h"
#include "scenario/line_reader.h"

namespace corvane::scenario {

namespace {

using inspect::QuantityKind;
using Failure = std::optional<LineError>;

struct ActionWord {
    std::string_view upperWord;
    Action action;
};

constexpr auto kActionWords = std::to_array<ActionWord>({
    {"SET", Action::Set},
    {"TOGGLE", Action::Toggle},
    {"ANALOG", Action::Analog},
    {"PRESS", Action::Press},
    {"HOLD", Action::Hold},
    {"RELEASE", Action::Release},
    {"WAIT", Action::Wait},
    {"WITHIN", Action::Within},
    {"FOR", Action::For},
    {"EXPECT", Action::Expect},
    {"NEVER", Action::Never},
    {"ALWAYS", Action::Always},
    {"CALL", Action::Call},
    {"SERIAL", Action::Serial},
    {"SEND", Action::Send},
    {"RESET", Action::Reset},
    {"END", Action::End},
});

// Where a word stands by itself in a text, outside of quotes, for the last time.
std::size_t FindLastWord(std::string_view text, std::string_view upperWord) {
    const std::string upper = common::ToUpper(text);
    const auto isBlank = [&upper](std::size_t i) {
        return i >= upper.size() || upper[i] == ' ' || upper[i] == '\t';
    };
    std::size_t found = upper.rfind(upperWord);
    while (found != std::string::npos && found > 0 &&
           !(isBlank(found - 1) && isBlank(found + upperWord.size()))) {
        found = upper.rfind(upperWord, found - 1);
    }
    return found == 0 ? std::string::npos : found;
}

// The next "," that is not the character ','.
std::size_t FindComma(std::string_view text) {
    std::size_t comma = text.find(',');
    while (comma != std::string_view::npos && comma > 0 && text[comma - 1] == '\'' &&
           text.substr(comma + 1).starts_with('\'')) {
        comma = text.find(',', comma + 1);
    }
    return std::min(comma, text.size());
}

std::string_view TrimBlanks(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(" \t"), text.size());
    text.remove_prefix(begin);
    return text.substr(0, text.find_last_not_of(" \t") + 1);
}

class StatementReader {
  public:
    StatementReader(std::string_view text, const inspect::Language& language, Test& test)
        : line_(text), language_(language), test_(test) {}

    Failure Read(Statement& statement) {
        const std::string word = common::ToUpper(line_.Word());
        const auto* row = std::find_if(kActionWords.begin(), kActionWords.end(),
                                       [&](const ActionWord& w) { return w.upperWord == word; });
        if (row == kActionWords.end()) {
            return line_.ErrorHere("'" + std::string(line_.Word()) + "' begins no line of a test.");
        }
        statement.action = row->action;
        line_.TakeWord();
        const Failure failure = ReadTail(statement);
        return failure || line_.IsAtEnd() ? failure
                                          : line_.ErrorHere("Nothing more is expected here.");
    }

  private:
    Failure ReadTail(Statement& statement) {
        switch (statement.action) {
            case Action::Set:
            case Action::Hold:
                return ReadAllOf(statement,
                                 {&StatementReader::ReadPin, &StatementReader::ReadLevel});
            case Action::Toggle:
            case Action::Release:
                return ReadPin(statement);
            case Action::Press:
                return ReadAllOf(statement, {&StatementReader::ReadPin, &StatementReader::ReadFor,
                                             &StatementReader::ReadDuration});
            case Action::Analog:
                return ReadAnalog(statement);
            case Action::Wait:
                return ReadDuration(statement);
            case Action::Within:
                return ReadWithin(statement);
            case Action::For:
                return ReadAllOf(
                    statement, {&StatementReader::ReadDuration, &StatementReader::ReadExpression});
            case Action::Always:
                return ReadExpression(statement);
            case Action::Expect:
            case Action::Never:
                return ReadJudgement(statement);
            case Action::Call:
                return ReadCall(statement);
            case Action::Serial:
                return ReadSerial(statement);
            case Action::Send:
                return ReadSend(statement);
            default:
                return std::nullopt;
        }
    }

    using Part = Failure (StatementReader::*)(Statement&);
    Failure ReadAllOf(Statement& statement, std::initializer_list<Part> parts) {
        for (const Part part : parts) {
            if (Failure failure = (this->*part)(statement)) {
                return failure;
            }
        }
        return std::nullopt;
    }

    Failure TakePin(std::string_view name, std::size_t column, core::Pin& pin) const {
        const inspect::Names& names = language_.names;
        const std::optional<core::Pin> found = core::FindPin(names.Model(), name);
        if (!found) {
            return LineError{column, std::string(names.Model().name) + " has no pin '" +
                                         std::string(name) + "'."};
        }
        pin = *found;
        return std::nullopt;
    }

    Failure ReadPin(Statement& statement) {
        const std::size_t column = line_.Column();
        return TakePin(line_.TakeWord(), column, statement.pin);
    }

    Failure ReadLevel(Statement& statement) {
        if (line_.Word() != "0" && line_.Word() != "1") {
            return line_.ErrorHere("The level must be 0 or 1.");
        }
        statement.value = line_.TakeWord() == "1" ? 1 : 0;
        return std::nullopt;
    }

    Failure ReadFor(Statement& /*statement*/) {
        return line_.TakeIf("FOR") ? std::nullopt
                                   : Failure(line_.ErrorHere("'for' is expected here."));
    }

    Failure ReadAnalog(Statement& statement) {
        const models::Model& model = language_.names.Model();
        const models::FamilyTraits& traits = models::TraitsOf(model.family);
        const std::string name = common::ToUpper(line_.Word());
        statement.channel = name.size() == 3 && name.starts_with("AN") ? name[2] - '0' : -1;
        if (statement.channel < 0 || statement.channel >= traits.analogChannels) {
            return line_.ErrorHere(std::string(model.name) + " has no analog input '" +
                                   std::string(line_.Word()) + "'.");
        }
        line_.TakeWord();
        const std::optional<std::int64_t> value = ReadWholeNumber(line_.Word());
        if (!value || *value > traits.analogFullScale) {
            return line_.ErrorHere("The analog value must be 0 to " +
                                   std::to_string(traits.analogFullScale) + ".");
        }
        statement.value = static_cast<int>(*value);
        line_.TakeWord();
        return std::nullopt;
    }

    Failure ReadDuration(Statement& statement) {
        const std::size_t column = line_.Column();
        auto text = line_.TakeDuration();
        if (!text) {
            return text.error;
        }
        const auto clocks = inspect::ReadDuration(*text, language_.clock);
        if (!clocks) {
            return LineError{column, "The time is too long."};
        }
        statement.duration = *clocks;
        statement.durationText = *text;
        return std::nullopt;
    }

    Failure ReadWithin(Statement& statement) {
        if (Failure failure = ReadDuration(statement)) {
            return failure;
        }
        if (common::ToUpper(line_.Rest()) == "END") {
            statement.action = Action::WithinEnd;
            line_.TakeRest();
            return std::nullopt;
        }
        return ReadJudgement(statement);
    }

    // NAME received "TEXT" stands alone; everything else is an expression.
    Failure ReadJudgement(Statement& statement) {
        LineReader ahead = line_;
        const std::string_view name = ahead.TakeWord();
        if (!ahead.TakeIf("RECEIVED")) {
            return ReadExpression(statement);
        }
        const auto serial = FindSerial(name);
        if (!serial || !test_.serials[*serial].tx) {
            return line_.ErrorHere("No line above lets '" + std::string(name) +
                                   "' listen to a pin.");
        }
        line_ = ahead;
        statement.judgement.serial = *serial;
        return ReadBytes(statement.judgement.received);
    }

    Failure ReadBytes(std::string& bytes) {
        const LineError error = line_.ErrorHere("The text is empty.");
        auto text = line_.TakeQuoted();
        if (!text) {
            return text.error;
        }
        bytes = *std::move(text.value);
        return bytes.empty() ? Failure(error) : std::nullopt;
    }

    Failure ReadExpression(Statement& statement) {
        LineReader ahead = line_;
        ahead.TakeWord();
        if (ahead.TakeIf("RECEIVED")) {
            return line_.ErrorHere(
                "A text is received once: 'within', 'expect' or 'never' says so.");
        }
        return ParseExpression(line_.TakeRest(), statement.judgement.expression);
    }

    template <typename Target>
    Failure ParseExpression(std::string_view text, Target& target) const {
        auto parsed = inspect::ParseExpression(text, language_);
        if (!parsed) {
            return LineError{0, "'" + std::string(text) + "', column " +
                                    std::to_string(parsed.error.column) + ": " +
                                    parsed.error.message};
        }
        target = *std::move(parsed.value);
        return std::nullopt;
    }

    Failure ReadCall(Statement& statement) {
        const std::size_t within = FindLastWord(line_.Rest(), "WITHIN");
        if (within == std::string_view::npos) {
            return line_.ErrorHere("'within' and a duration are expected behind the call.");
        }
        const std::size_t column = line_.Column();
        const std::string_view call = line_.Rest().substr(0, within);
        LineReader target(call);
        if (Failure failure = ReadLabel(target, column - 1, statement)) {
            return failure;
        }
        for (std::size_t end = within; line_.Column() - column < end;) {
            line_.TakeWord();
        }
        line_.TakeIf("WITHIN");
        return ReadDuration(statement);
    }

    // The label, and what stands behind "with".
    Failure ReadLabel(LineReader& call, std::size_t offset, Statement& statement) const {
        const std::string_view name = call.Word();
        const inspect::Meaning* meaning = language_.names.Find(name);
        const std::optional<std::int64_t> address = ReadWholeNumber(name);
        if (meaning != nullptr && meaning->isLabel) {
            statement.address = static_cast<int>(meaning->number);
        } else if (address && *address < language_.names.Model().programWords) {
            statement.address = static_cast<int>(*address);
        } else {
            return LineError{offset + call.Column(),
                             "There is no label '" + std::string(name) + "'."};
        }
        call.TakeWord();
        if (call.IsAtEnd()) {
            return std::nullopt;
        }
        if (!call.TakeIf("WITH")) {
            return LineError{offset + call.Column(), "'with' or 'within' is expected here."};
        }
        return ReadAssignments(call.Rest(), offset + call.Column(), statement);
    }

    Failure ReadAssignments(std::string_view text, std::size_t column, Statement& statement) const {
        while (true) {
            const std::string_view item = text.substr(0, FindComma(text));
            if (Failure failure = ReadAssignment(item, column, statement)) {
                return failure;
            }
            if (item.size() == text.size()) {
                return std::nullopt;
            }
            text.remove_prefix(item.size() + 1);
            column += item.size() + 1;
        }
    }

    Failure ReadAssignment(std::string_view item, std::size_t column, Statement& statement) const {
        const std::size_t sign = item.find('=');
        std::optional<inspect::Expression> target;
        if (sign == std::string_view::npos) {
            return LineError{column, "NAME = EXPR is expected here."};
        }
        const std::string_view name = TrimBlanks(item.substr(0, sign));
        if (Failure failure = ParseExpression(name, target)) {
            return failure;
        }
        if (target->code.size() != 1 || !CanBeSet(target->code.front())) {
            return LineError{column, "'" + std::string(name) + "' cannot be set."};
        }
        const inspect::Quantity quantity = target->code.front().quantity;
        if (Failure failure = ParseExpression(TrimBlanks(item.substr(sign + 1)), target)) {
            return failure;
        }
        statement.assignments.push_back({std::string(name), quantity, *std::move(target)});
        return std::nullopt;
    }

    static bool CanBeSet(const inspect::Operation& operation) {
        if (operation.op != inspect::Operator::Load) {
            return false;
        }
        switch (operation.quantity.kind) {
            case QuantityKind::W:
            case QuantityKind::Cell:
            case QuantityKind::CellPair:
            case QuantityKind::CellBit:
                return true;
            default:
                return false;
        }
    }

    std::optional<std::size_t> FindSerial(std::string_view name) const {
        const std::string upper = common::ToUpper(name);
        for (std::size_t i = 0; i < test_.serials.size(); ++i) {
            if (common::ToUpper(test_.serials[i].name) == upper) {
                return i;
            }
        }
        return std::nullopt;
    }

    Failure ReadSerial(Statement& statement) {
        const LineError nameError = line_.ErrorHere("A new name is expected here.");
        SerialPort port = {std::string(line_.TakeWord()), {}, {}, 0};
        if (port.name.empty() || port.name.find('=') != std::string::npos ||
            FindSerial(port.name)) {
            return nameError;
        }
        while (!line_.IsAtEnd()) {
            if (Failure failure = ReadSerialOption(port)) {
                return failure;
            }
        }
        if (port.baud == 0 || (!port.tx && !port.rx)) {
            return line_.ErrorHere("'baud=N' and 'tx=PIN' or 'rx=PIN' are expected here.");
        }
        statement.serial = test_.serials.size();
        test_.serials.push_back(std::move(port));
        return std::nullopt;
    }

    Failure ReadSerialOption(SerialPort& port) {
        const std::string_view word = line_.Word();
        const std::size_t sign = std::min(word.find('='), word.size());
        const std::string key = common::ToUpper(word.substr(0, sign));
        const std::string_view value = word.substr(std::min(sign + 1, word.size()));
        const std::size_t column = line_.Column() + sign + 1;
        if (key == "BAUD" && port.baud == 0) {
            // A bit lasts a clock cycle at least.
            const std::optional<std::int64_t> baud = ReadWholeNumber(value);
            if (!baud || *baud < 1 || *baud > std::numeric_limits<int>::max() ||
                inspect::ClocksInHalfPeriodsDown(2, *baud, language_.clock) < 1) {
                return LineError{column, "This is no bit rate that the chip's clock allows."};
            }
            port.baud = *baud;
        } else if ((key == "TX" && !port.tx) || (key == "RX" && !port.rx)) {
            if (Failure failure =
                    TakePin(value, column, (key == "TX" ? port.tx : port.rx).emplace())) {
                return failure;
            }
        } else {
            return line_.ErrorHere("'tx=PIN', 'rx=PIN' or 'baud=N' is expected here, each once.");
        }
        line_.TakeWord();
        return std::nullopt;
    }

    Failure ReadSend(Statement& statement) {
        const auto serial = FindSerial(line_.Word());
        if (!serial || !test_.serials[*serial].rx) {
            return line_.ErrorHere("No line above lets '" + std::string(line_.Word()) +
                                   "' send to a pin.");
        }
        statement.serial = *serial;
        line_.TakeWord();
        return ReadBytes(statement.bytes);
    }

    LineReader line_;
    const inspect::Language& language_;
    Test& test_;
};

}  // namespace

common::Result<Test, ReadError> ReadTest(const TestLines& lines,
                                         const inspect::Language& language) {
    using TestResult = common::Result<Test, ReadError>;
    Test test{.name = lines.name, .line = lines.line};
    for (const TestLine& line : lines.lines) {
        LineReader text(line.text);
        Statement statement{
            .action = Action::End, .line = line.number, .text = std::string(text.Rest())};
        StatementReader reader(line.text, language, test);
        if (const Failure failure = reader.Read(statement)) {
            return TestResult::Failure(AtColumn(line.number, *failure));
        }
        test.statements.push_back(std::move(statement));
    }
    return TestResult::Success(std::move(test));
}

}  // namespace corvane::scenario
