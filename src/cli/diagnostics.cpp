#include "cli/diagnostics.h"

#include <cstdio>

namespace corvane::cli {

namespace {

std::string Located(std::string_view file, int lineNumber, std::string_view kind,
                    std::string_view message) {
    std::string text(file);
    if (lineNumber > 0) {
        text += ':' + std::to_string(lineNumber);
    }
    return text.append(kind).append(message);
}

}  // namespace

std::string ErrorText(std::string_view file, int lineNumber, std::string_view message) {
    return Located(file, lineNumber, ": error: ", message);
}

std::string ErrorText(std::string_view file, std::string_view message) {
    return ErrorText(file, 0, message);
}

std::string NoteText(std::string_view file, int lineNumber, std::string_view message) {
    return Located(file, lineNumber, ": note: ", message);
}

std::string WarningText(std::string_view file, int lineNumber, std::string_view message) {
    return Located(file, lineNumber, ": warning: ", message);
}

void ReportWarning(std::string_view file, int lineNumber, std::string_view message) {
    WriteStandardError(WarningText(file, lineNumber, message));
}

// When standard error itself fails there is nobody left to tell.
void WriteStandardError(std::string_view lines) {
    std::fwrite(lines.data(), 1, lines.size(), stderr);
    std::fputc('\n', stderr);
}

}  // namespace corvane::cli
