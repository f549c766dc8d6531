// The form of errors and warnings, which editors and CI systems parse.
#pragma once

#include <string>
#include <string_view>

#include "project/messages.h"

namespace corvane::cli {

// "FILE:LINE: error: MESSAGE", lines from 1; without the line when it is 0.
std::string ErrorText(std::string_view file, int lineNumber, std::string_view message);
std::string ErrorText(std::string_view file, std::string_view message);

// Writes "FILE:LINE: warning: MESSAGE" to standard error.
void ReportWarning(std::string_view file, int lineNumber, std::string_view message);

// Writes messages to standard error, each in a line.
void Report(const project::Messages& messages);

// Writes lines to standard error.
void WriteStandardError(std::string_view lines);

}  // namespace corvane::cli
