#include "common/file_replacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <random>
#include <system_error>

#include "common/system_error.h"

namespace corvane::common {

namespace fs = std::filesystem;

namespace {

constexpr int kMostLinks = 40;  // as many as the system follows
constexpr mode_t kNewFileMode = 0666;

// A write-protected file must not be replaced just because its folder is writable.
bool IsWritable(const fs::path& path) {
    errno = 0;
    const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    return file >= 0 && close(file) == 0;
}

// A link keeps pointing where it did: its target is the file that is replaced, or made. Nothing
// when the links lead in a circle.
std::optional<fs::path> ReplacedFile(fs::path path) {
    std::error_code error;
    for (int links = 0; links < kMostLinks; ++links) {
        if (!fs::is_symlink(path, error)) {
            return path;
        }
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    return std::nullopt;
}

std::string TemporaryName() {
    constexpr std::string_view kLetters = "0123456789abcdefghijklmnopqrstuvwxyz";
    constexpr int kRandomLetters = 12;
    std::random_device random;
    std::uniform_int_distribution<std::size_t> letter(0, kLetters.size() - 1);
    std::string name = ".corvane-";
    for (int i = 0; i < kRandomLetters; ++i) {
        name += kLetters[letter(random)];
    }
    return name;
}

}  // namespace

FileReplacement::~FileReplacement() {
    Drop();
}

std::optional<std::string> FileReplacement::Open(const fs::path& path) {
    const std::optional<fs::path> target = ReplacedFile(path);
    if (!target) {
        return std::make_error_code(std::errc::too_many_symbolic_link_levels).message();
    }
    target_ = *target;
    std::error_code error;
    const fs::file_status status = fs::status(target_, error);
    if (fs::is_directory(status)) {
        return std::make_error_code(std::errc::is_a_directory).message();
    }
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        return OpenInPlace();
    }
    if (fs::exists(status) && !IsWritable(target_)) {
        return LastSystemError();
    }
    return OpenBeside(status);
}

std::optional<std::string> FileReplacement::OpenInPlace() {
    errno = 0;
    file_.reset(std::fopen(target_.c_str(), "wbe"));
    return file_ ? std::nullopt : std::optional(LastSystemError());
}

std::optional<std::string> FileReplacement::OpenBeside(const fs::file_status& oldFile) {
    int file = -1;
    do {
        fresh_ = target_.parent_path() / TemporaryName();
        errno = 0;
        file = open(fresh_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                    kNewFileMode);
    } while (file < 0 && errno == EEXIST);
    if (file < 0) {
        fresh_.clear();  // it was never made
        return LastSystemError();
    }
    // Not every file system has modes; one that has none keeps its own.
    static_cast<void>(fs::exists(oldFile) &&
                      fchmod(file, static_cast<mode_t>(oldFile.permissions())));
    file_.reset(fdopen(file, "wb"));
    if (file_) {
        return std::nullopt;
    }
    std::string reason = LastSystemError();
    close(file);
    Drop();
    return reason;
}

std::optional<std::string> FileReplacement::Write(std::string_view text) {
    errno = 0;
    if (!file_) {
        return LastSystemError();  // an earlier piece has failed
    }
    if (std::fwrite(text.data(), 1, text.size(), file_.get()) != text.size()) {
        std::string reason = LastSystemError();
        Drop();
        return reason;
    }
    return std::nullopt;
}

std::optional<std::string> FileReplacement::Commit() {
    errno = 0;
    if (!file_) {
        return LastSystemError();
    }
    bool done = std::fflush(file_.get()) == 0;
    // A rename may reach the disk before the text does.
    done = done && (fresh_.empty() || fsync(fileno(file_.get())) == 0);
    done = std::fclose(file_.release()) == 0 && done;
    done = done && (fresh_.empty() || std::rename(fresh_.c_str(), target_.c_str()) == 0);
    if (!done) {
        std::string reason = LastSystemError();
        Drop();
        return reason;
    }
    fresh_.clear();
    return std::nullopt;
}

void FileReplacement::Drop() {
    file_.reset();
    if (!fresh_.empty()) {
        std::error_code error;
        fs::remove(fresh_, error);
        fresh_.clear();
    }
}

}  // namespace corvane::common
