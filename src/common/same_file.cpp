#include "common/same_file.h"

#include <system_error>

namespace corvane::common {

namespace fs = std::filesystem;

bool IsSameFile(const fs::path& first, const fs::path& second) {
    std::error_code error;
    if (fs::equivalent(first, second, error)) {
        return fs::is_regular_file(first, error);
    }
    return !fs::exists(first, error) &&
           fs::absolute(first).lexically_normal() == fs::absolute(second).lexically_normal();
}

}  // namespace corvane::common
