// How a long translation tells its caller where it is.
#pragma once

#include <functional>
#include <string_view>

namespace corvane::common {

// Called with what is being done ("Performing pass 1.") and the line it has reached, from 1; 0 when
// no line is meant. It is called once a line, so whoever shows it decides how often to look.
using ProgressCallback = std::function<void(std::string_view status, int line)>;

}  // namespace corvane::common
