#include "cli/output.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "cli/diagnostics.h"
#include "cli/interrupt.h"
#include "common/same_file.h"
#include "common/system_error.h"
#include "common/text.h"

namespace corvane::cli {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kStandardOutput = "-";

std::optional<std::string> WriteStandardOutput(std::string_view text) {
    errno = 0;
    const bool done = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    return done ? std::nullopt : std::optional(common::LastSystemError());
}

std::optional<std::string> FlushStandardOutput() {
    errno = 0;
    return std::fflush(stdout) == 0 ? std::nullopt : std::optional(common::LastSystemError());
}

bool IsFile(const std::string& name) {
    return !name.empty() && name != kStandardOutput;
}

bool IsSameOutput(const std::string& first, const std::string& second) {
    return IsFile(first) && IsFile(second) && common::IsSameFile(first, second);
}

// A device or a pipe may keep its writer waiting, and then Ctrl-C is wanted.
bool IsWrittenAtOnce(const std::string& name) {
    std::error_code error;
    return name != kStandardOutput &&
           (!fs::exists(name, error) || fs::is_regular_file(name, error));
}

}  // namespace

std::optional<std::string> Output::Open(const std::string& name) {
    isStandardOutput_ = name == kStandardOutput;
    name_ = isStandardOutput_ ? "standard output" : name;
    return isStandardOutput_ ? std::nullopt : Located(file_.Open(name));
}

std::optional<std::string> Output::Write(std::string_view text) {
    return Located(isStandardOutput_ ? WriteStandardOutput(text) : file_.Write(text));
}

std::optional<std::string> Output::Close() {
    return Located(isStandardOutput_ ? FlushStandardOutput() : file_.Commit());
}

std::optional<std::string> Output::Located(const std::optional<std::string>& reason) const {
    return reason ? std::optional(ErrorText(name_, *reason)) : std::nullopt;
}

std::optional<std::string> WriteOutput(const std::string& name, std::string_view text) {
    return WriteForTools(name,
                         name == kStandardOutput ? common::WithLf(text) : common::WithCrLf(text));
}

std::optional<std::string> WriteForTools(const std::string& name, std::string_view text) {
    std::optional<SignalsWait> wait;
    if (IsWrittenAtOnce(name)) {
        wait.emplace();
    }
    Output output;
    std::optional<std::string> error = output.Open(name);
    if (!error) {
        error = output.Write(text);
    }
    return error ? error : output.Close();
}

std::optional<std::string> OutputConflict(std::span<const std::string> inputs,
                                          std::span<const std::string> outputs) {
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        for (const std::string& input : inputs) {
            if (IsSameOutput(outputs[i], input)) {
                return ErrorText(outputs[i], "The output would replace the input.");
            }
        }
        for (const std::string& other : outputs.first(i)) {
            if (IsSameOutput(outputs[i], other)) {
                return ErrorText(outputs[i], "Two outputs have the same name.");
            }
        }
    }
    return std::nullopt;
}

}  // namespace corvane::cli
