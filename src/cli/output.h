// Where results go: a file, or standard output when the name is "-".
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "common/file_replacement.h"

namespace corvane::cli {

// Result text that is written piece by piece. A file appears as a whole with Close. Every function
// returns the error's complete text, "FILE: error: No space left on device".
class Output {
  public:
    std::optional<std::string> Open(const std::string& name);
    std::optional<std::string> Write(std::string_view text);
    std::optional<std::string> Close();

    // What ends a line: CR LF in files, LF on standard output.
    std::string_view LineEnd() const { return isStandardOutput_ ? "\n" : "\r\n"; }

  private:
    std::optional<std::string> Located(const std::optional<std::string>& reason) const;

    std::string name_;
    bool isStandardOutput_ = false;
    common::FileReplacement file_;
};

// Writes a whole text with the line ends that belong there.
std::optional<std::string> WriteOutput(const std::string& name, std::string_view text);

// The same in a format of other tools, whose lines end with LF everywhere.
std::optional<std::string> WriteForTools(const std::string& name, std::string_view text);

// The first output that would replace an input or another output, as an error's text.
std::optional<std::string> OutputConflict(std::span<const std::string> inputs,
                                          std::span<const std::string> outputs);

}  // namespace corvane::cli
