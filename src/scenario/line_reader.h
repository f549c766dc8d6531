// The words of one line of a test file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "common/result.h"

namespace corvane::scenario {

// What is wrong with a line; columns count from 1. Without a column (0) the message names it.
struct LineError {
    std::size_t column;
    std::string message;
};

// The line up to its comment and without blanks at its end. A "#" in quotes begins none.
std::string_view WithoutComment(std::string_view line);

// Reads a line word by word. What its functions return points into the line.
class LineReader {
  public:
    explicit LineReader(std::string_view line) : line_(WithoutComment(line)) { SkipBlanks(); }

    bool IsAtEnd() const { return position_ == line_.size(); }
    std::size_t Column() const { return position_ + 1; }

    // Everything from here on.
    std::string_view Rest() const { return line_.substr(position_); }
    std::string_view TakeRest();

    // The characters up to the next blank; empty at the end.
    std::string_view Word() const;
    std::string_view TakeWord();

    // Takes the next word if it is this one in any case.
    bool TakeIf(std::string_view upperWord);

    // A text between two ", in which \r \n \t \\ \" and \xHH stand for one byte each.
    common::Result<std::string, LineError> TakeQuoted();

    // "20 ms", "1.5us": the number and its unit as one text.
    common::Result<std::string_view, LineError> TakeDuration();

    // An error here.
    LineError ErrorHere(std::string message) const { return {Column(), std::move(message)}; }

  private:
    void SkipBlanks();

    std::string_view line_;
    std::size_t position_ = 0;
};

// A whole number of 0 or more as expressions have it: decimal, 0x1F, %0101 or 'A'.
std::optional<std::int64_t> ReadWholeNumber(std::string_view text);

}  // namespace corvane::scenario
