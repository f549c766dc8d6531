// What holds as long as a person does not choose otherwise.
#pragma once

namespace corvane::models {

inline constexpr float kDefaultClockFrequency = 4.0F;  // MHz
inline constexpr int kDefaultEepromWriteTime = 1000;   // clock cycles
inline constexpr int kDefaultAdConversionTime = 100;   // clock cycles

}  // namespace corvane::models
