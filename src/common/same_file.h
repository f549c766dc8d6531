// Whether two names mean one file.
#pragma once

#include <filesystem>

namespace corvane::common {

// True for one regular file, also through links of any kind, and for one place where there is no
// file yet. A device may take what several write, so that it is never the same.
bool IsSameFile(const std::filesystem::path& first, const std::filesystem::path& second);

}  // namespace corvane::common
