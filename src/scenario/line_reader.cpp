#include "scenario/line_reader.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "common/text.h"
#include "inspect/clock.h"
#include "inspect/tokens.h"

namespace corvane::scenario {

namespace {

constexpr std::string_view kBlanks = " \t";

// Behind the closing quote of a text that begins here, or the end.
std::size_t EndOfQuoted(std::string_view line, std::size_t begin) {
    std::size_t i = begin + 1;
    while (i < line.size() && line[i] != '"') {
        i += line[i] == '\\' ? 2 : 1;
    }
    return std::min(i + 1, line.size());
}

// The byte of an escape; the position stands behind its "\" and is moved behind the whole.
std::optional<char> ReadEscape(std::string_view line, std::size_t& position) {
    constexpr std::string_view kNames = "rnt\\\"";
    constexpr std::string_view kBytes = "\r\n\t\\\"";
    constexpr int kBase = 16;
    if (position >= line.size()) {
        return std::nullopt;
    }
    const std::size_t name = kNames.find(line[position]);
    if (name != std::string_view::npos) {
        ++position;
        return kBytes[name];
    }
    const std::string_view digits = line.substr(position + 1, 2);
    unsigned char byte = 0;
    const auto [stop, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), byte, kBase);
    if (line[position] != 'x' || digits.size() != 2 || error != std::errc() ||
        stop != digits.data() + 2) {
        return std::nullopt;
    }
    position += 3;
    return static_cast<char>(byte);
}

}  // namespace

std::string_view WithoutComment(std::string_view line) {
    std::size_t end = 0;
    while (end < line.size() && line[end] != '#') {
        if (line[end] == '"') {
            end = EndOfQuoted(line, end);
        } else {
            end += line.substr(end).starts_with("'#'") ? 3 : 1;
        }
    }
    line = line.substr(0, end);
    return line.substr(0, line.find_last_not_of(kBlanks) + 1);
}

void LineReader::SkipBlanks() {
    position_ = std::min(line_.find_first_not_of(kBlanks, position_), line_.size());
}

std::string_view LineReader::TakeRest() {
    return line_.substr(std::exchange(position_, line_.size()));
}

std::string_view LineReader::Word() const {
    return Rest().substr(0, Rest().find_first_of(kBlanks));
}

std::string_view LineReader::TakeWord() {
    const std::string_view word = Word();
    position_ += word.size();
    SkipBlanks();
    return word;
}

bool LineReader::TakeIf(std::string_view upperWord) {
    const bool isIt = common::ToUpper(Word()) == upperWord;
    if (isIt) {
        TakeWord();
    }
    return isIt;
}

common::Result<std::string, LineError> LineReader::TakeQuoted() {
    using QuotedResult = common::Result<std::string, LineError>;
    if (!Rest().starts_with('"')) {
        return QuotedResult::Failure(ErrorHere("A text in double quotes is expected here."));
    }
    std::string text;
    std::size_t i = position_ + 1;
    while (i < line_.size() && line_[i] != '"') {
        if (line_[i] != '\\') {
            text += line_[i++];
            continue;
        }
        const std::size_t escape = i++;
        const std::optional<char> byte = ReadEscape(line_, i);
        if (!byte) {
            return QuotedResult::Failure(
                {escape + 1, R"(After a \ stands r, n, t, \, " or x with two digits.)"});
        }
        text += *byte;
    }
    if (i >= line_.size()) {
        return QuotedResult::Failure(ErrorHere("The text has no closing double quote."));
    }
    position_ = i + 1;
    SkipBlanks();
    return QuotedResult::Success(std::move(text));
}

common::Result<std::string_view, LineError> LineReader::TakeDuration() {
    using DurationResult = common::Result<std::string_view, LineError>;
    std::string_view rest = Rest();
    const bool isNumber = inspect::TakeDecimal(rest).has_value();
    const std::size_t blanks = std::min(rest.find_first_not_of(kBlanks), rest.size());
    const inspect::Token unit = inspect::ReadToken(rest, blanks, false);
    if (!isNumber || unit.kind != inspect::TokenKind::Name || !inspect::IsUnit(unit.text)) {
        return DurationResult::Failure(ErrorHere("A duration such as 20 ms is expected here."));
    }
    const std::size_t length = Rest().size() - rest.size() + unit.position + unit.text.size();
    const std::string_view duration = Rest().substr(0, length);
    position_ += length;
    SkipBlanks();
    return DurationResult::Success(duration);
}

std::optional<std::int64_t> ReadWholeNumber(std::string_view text) {
    const inspect::Token token = inspect::ReadToken(text, 0, true);
    const bool isNumber = token.kind == inspect::TokenKind::Number && token.number.decimals == 0 &&
                          token.text.size() == text.size();
    return isNumber ? std::optional(token.number.digits) : std::nullopt;
}

}  // namespace corvane::scenario
