// Messages that several checks have.
#pragma once

namespace corvane::basic {

inline constexpr const char* kIncorrectArgument = "Incorrect argument.";
inline constexpr const char* kIncorrectLabelName = "Incorrect line label name.";
inline constexpr const char* kNotEnoughRam = "Not enough RAM memory available for this variable.";
inline constexpr const char* kDifferentTypes = "Arguments must be of the same type.";

}  // namespace corvane::basic
