// How a check or a translation says what is wrong with a line.
#pragma once

#include <optional>
#include <string_view>

namespace corvane::basic {

// The message for the person, a constant text, or nothing when all is well.
using Problem = std::optional<std::string_view>;

inline constexpr Problem kNoProblem;

// Messages that several checks have.
inline constexpr std::string_view kIncorrectArgument = "Incorrect argument.";
inline constexpr std::string_view kIncorrectLabelName = "Incorrect line label name.";
inline constexpr std::string_view kNotEnoughRam =
    "Not enough RAM memory available for this variable.";
inline constexpr std::string_view kDifferentTypes = "Arguments must be of the same type.";

}  // namespace corvane::basic
