#include "common/text_file.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

#include "common/file_replacement.h"
#include "common/system_error.h"

namespace corvane::common {

namespace fs = std::filesystem;

Result<std::string> ReadTextFile(const fs::path& path) {
    std::error_code error;
    if (fs::is_directory(path, error)) {
        return Result<std::string>::Failure(
            std::make_error_code(std::errc::is_a_directory).message());
    }
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return Result<std::string>::Failure(LastSystemError());
    }
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (file.bad()) {
        return Result<std::string>::Failure(LastSystemError());
    }
    return Result<std::string>::Success(std::move(text));
}

std::optional<std::string> WriteTextFile(const fs::path& path, std::string_view text) {
    FileReplacement file;
    if (std::optional<std::string> failure = file.Open(path)) {
        return failure;
    }
    if (std::optional<std::string> failure = file.Write(text)) {
        return failure;
    }
    return file.Commit();
}

}  // namespace corvane::common
