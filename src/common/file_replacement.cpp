#include "common/file_replacement.h"

#include <cerrno>
#include <system_error>

#include "common/system_error.h"

namespace corvane::common {

namespace fs = std::filesystem;

namespace {

// A write-protected file must not be replaced just because its folder is writable.
bool IsWritable(const fs::path& path) {
    errno = 0;
    return std::ofstream(path, std::ios::binary | std::ios::app).is_open();
}

// A link keeps pointing where it did: its target is the file that is replaced.
fs::path ReplacedFile(const fs::path& path) {
    std::error_code error;
    const fs::path target = fs::is_symlink(path, error) ? fs::canonical(path, error) : path;
    return error ? path : target;
}

}  // namespace

FileReplacement::~FileReplacement() {
    Drop();
}

std::optional<std::string> FileReplacement::Open(const fs::path& path) {
    std::error_code error;
    target_ = ReplacedFile(path);
    const fs::file_status status = fs::status(target_, error);
    if (fs::is_directory(status)) {
        return std::make_error_code(std::errc::is_a_directory).message();
    }
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        return OpenStream(target_);
    }
    if (fs::exists(status) && !IsWritable(target_)) {
        return LastSystemError();
    }
    fs::path fresh = target_;
    fresh.replace_filename("." + target_.filename().string() + ".part");
    if (std::optional<std::string> failure = OpenStream(fresh)) {
        return failure;
    }
    fresh_ = std::move(fresh);
    if (fs::exists(status)) {
        fs::permissions(fresh_, status.permissions(), error);
    }
    return std::nullopt;
}

std::optional<std::string> FileReplacement::OpenStream(const fs::path& path) {
    errno = 0;
    file_.open(path, std::ios::binary | std::ios::trunc);
    return file_ ? std::nullopt : std::optional(LastSystemError());
}

std::optional<std::string> FileReplacement::Write(std::string_view text) {
    errno = 0;
    if (!file_.write(text.data(), static_cast<std::streamsize>(text.size()))) {
        std::string reason = LastSystemError();
        Drop();
        return reason;
    }
    return std::nullopt;
}

std::optional<std::string> FileReplacement::Commit() {
    errno = 0;
    file_.close();
    if (!file_) {
        std::string reason = LastSystemError();
        Drop();
        return reason;
    }
    if (fresh_.empty()) {
        return std::nullopt;
    }
    std::error_code error;
    fs::rename(fresh_, target_, error);
    if (error) {
        Drop();
        return error.message();
    }
    fresh_.clear();
    return std::nullopt;
}

void FileReplacement::Drop() {
    if (file_.is_open()) {
        file_.close();
    }
    if (!fresh_.empty()) {
        std::error_code error;
        fs::remove(fresh_, error);
        fresh_.clear();
    }
}

}  // namespace corvane::common
