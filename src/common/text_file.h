// Whole text files. A file is replaced as a whole or left as it was.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "common/result.h"

namespace corvane::common {

// The file's bytes, or the reason why it cannot be read ("No such file or directory"). What is no
// regular file is refused at once: a pipe would keep the caller waiting, a device may never end.
Result<std::string> ReadTextFile(const std::filesystem::path& path);

// The same, but a pipe or a terminal is read to its end, for as long as that takes.
Result<std::string> ReadTextFileOrPipe(const std::filesystem::path& path);

// Writes the text into a new file beside the old one, which then takes its place; devices and pipes
// are written in place. Returns the reason of a failure, which leaves the old file as it was.
std::optional<std::string> WriteTextFile(const std::filesystem::path& path, std::string_view text);

}  // namespace corvane::common
