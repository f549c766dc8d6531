#include "common/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

#include "common/file_replacement.h"
#include "common/system_error.h"

namespace corvane::common {

namespace fs = std::filesystem;

namespace {

using ReadResult = Result<std::string>;

class OpenFile {
  public:
    OpenFile(const fs::path& path, int flags) : file_(open(path.c_str(), flags | O_CLOEXEC)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (file_ >= 0) {
            close(file_);
        }
    }
    int Number() const { return file_; }

  private:
    int file_;
};

ReadResult ReadToEnd(int file) {
    std::string text;
    std::array<char, 65536> piece;
    while (true) {
        errno = 0;
        const ssize_t size = read(file, piece.data(), piece.size());
        if (size == 0) {
            return ReadResult::Success(std::move(text));
        }
        if (size < 0 && errno != EINTR) {
            return ReadResult::Failure(LastSystemError());
        }
        text.append(piece.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    }
}

bool IsReadable(const struct stat& status, int file, bool pipesToo) {
    return S_ISREG(status.st_mode) || (pipesToo && (S_ISFIFO(status.st_mode) ||
                                                    S_ISSOCK(status.st_mode) || isatty(file) == 1));
}

// The flags keep the call from waiting for the other end of a pipe.
ReadResult ReadFile(const fs::path& path, int flags, bool pipesToo) {
    errno = 0;
    const OpenFile file(path, O_RDONLY | flags);
    struct stat status {};
    if (file.Number() < 0 || fstat(file.Number(), &status) != 0) {
        return ReadResult::Failure(LastSystemError());
    }
    if (S_ISDIR(status.st_mode)) {
        return ReadResult::Failure(std::make_error_code(std::errc::is_a_directory).message());
    }
    return IsReadable(status, file.Number(), pipesToo) ? ReadToEnd(file.Number())
                                                       : ReadResult::Failure("Not a regular file");
}

}  // namespace

ReadResult ReadTextFile(const fs::path& path) {
    return ReadFile(path, O_NONBLOCK, false);
}

ReadResult ReadTextFileOrPipe(const fs::path& path) {
    return ReadFile(path, 0, true);
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
