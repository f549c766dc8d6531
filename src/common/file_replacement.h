// Writing a file piece by piece, so that it is replaced as a whole or left as it was.
#pragma once

#include <filesystem>
#include <fstream>
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

    // Opens a new file beside the old one. Devices and pipes are opened themselves.
    std::optional<std::string> Open(const std::filesystem::path& path);

    std::optional<std::string> Write(std::string_view text);

    // Puts the new file in the old one's place.
    std::optional<std::string> Commit();

  private:
    std::optional<std::string> OpenStream(const std::filesystem::path& path);
    void Drop();

    std::ofstream file_;
    std::filesystem::path target_;
    std::filesystem::path fresh_;  // empty when there is nothing to be renamed or removed
};

}  // namespace corvane::common
