// The reason of a failed call of the operating system.
#pragma once

#include <cerrno>
#include <string>
#include <system_error>

namespace corvane::common {

// "No such file or directory": the text of errno, which the caller has set to 0 before the call.
inline std::string LastSystemError() {
    return std::error_code(errno != 0 ? errno : EIO, std::generic_category()).message();
}

}  // namespace corvane::common
