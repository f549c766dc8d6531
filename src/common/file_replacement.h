// Writing a file piece by piece, so that it is replaced as a whole or left as it was.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace corvane::common {

// Every function returns the reason of a failure ("No space left on device"); after one, the old
// file stays as it was and nothing else stays.
class FileReplacement {
  public:
    FileReplacement() = default;
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement();  // what was not committed is dropped

    // Makes a new file of a random name beside the old one, which several writers of one file do
    // not share. Of a link the target is replaced, or made. Devices and pipes are written in place.
    std::optional<std::string> Open(const std::filesystem::path& path);

    std::optional<std::string> Write(std::string_view text);

    // Puts the new file in the old one's place, once the disk holds it.
    std::optional<std::string> Commit();

  private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    std::optional<std::string> OpenInPlace();
    std::optional<std::string> OpenBeside(const std::filesystem::file_status& oldFile);
    void Drop();

    std::unique_ptr<std::FILE, Closer> file_;
    std::filesystem::path target_;
    std::filesystem::path fresh_;  // empty when there is nothing to be renamed or removed
};

}  // namespace corvane::common
