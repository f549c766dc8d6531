#include "cli/diagnostics.h"

#include <cstdio>

#include "common/diagnostic.h"

namespace corvane::cli {

std::string ErrorText(std::string_view file, int lineNumber, std::string_view message) {
    return common::TextWithFile({.file = std::string(file),
                                 .line = lineNumber,
                                 .severity = common::Severity::Error,
                                 .text = std::string(message)});
}

std::string ErrorText(std::string_view file, std::string_view message) {
    return ErrorText(file, 0, message);
}

void Report(const project::Messages& messages) {
    for (const common::Diagnostic& message : messages) {
        WriteStandardError(common::TextWithFile(message));
    }
}

void ReportWarning(std::string_view file, int lineNumber, std::string_view message) {
    Report({{.file = std::string(file),
             .line = lineNumber,
             .severity = common::Severity::Warning,
             .text = std::string(message)}});
}

// When standard error itself fails there is nobody left to tell.
void WriteStandardError(std::string_view lines) {
    std::fwrite(lines.data(), 1, lines.size(), stderr);
    std::fputc('\n', stderr);
}

}  // namespace corvane::cli
