// What is added to an error's message, which does not name what it means.
#pragma once

#include <string>
#include <string_view>

namespace corvane::assembler {

// In single quotes; control characters would do things to the terminal that shows them.
std::string Quoted(std::string_view text);

// "'H'20'' is no number and no defined name; write 0x20.": the way to write it where other
// assemblers have one of their own.
std::string UnknownOperandNote(std::string_view operand);

// "'300' is above 255, the largest value here."
std::string TooLargeNote(std::string_view operand, int limit);

}  // namespace corvane::assembler
