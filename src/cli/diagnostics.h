// The form of errors and warnings, which editors and CI systems parse.
#pragma once

#include <string>
#include <string_view>

namespace corvane::cli {

// "FILE:LINE: error: MESSAGE", lines from 1; without the line when it is 0.
std::string ErrorText(std::string_view file, int lineNumber, std::string_view message);
std::string ErrorText(std::string_view file, std::string_view message);

// "FILE:LINE: warning: MESSAGE".
std::string WarningText(std::string_view file, int lineNumber, std::string_view message);

// "FILE:LINE: note: MESSAGE", which adds to the error before it.
std::string NoteText(std::string_view file, int lineNumber, std::string_view message);

// Writes "FILE:LINE: warning: MESSAGE" to standard error.
void ReportWarning(std::string_view file, int lineNumber, std::string_view message);

// Writes lines to standard error.
void WriteStandardError(std::string_view lines);

}  // namespace corvane::cli
