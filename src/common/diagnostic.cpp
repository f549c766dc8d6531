#include "common/diagnostic.h"

#include <string_view>

namespace corvane::common {

namespace {

std::string_view NameOf(Severity severity) {
    switch (severity) {
        case Severity::Error:
            return "error";
        case Severity::Warning:
            return "warning";
        case Severity::Note:
            break;
    }
    return "note";
}

}  // namespace

std::string TextWithLine(const Diagnostic& diagnostic) {
    const bool isWarning = diagnostic.severity == Severity::Warning;
    return std::string(isWarning ? "Warning" : "Error") + " in line " +
           std::to_string(diagnostic.line) + ": " + diagnostic.text;
}

std::string TextWithFile(const Diagnostic& diagnostic) {
    if (diagnostic.file.empty()) {
        return diagnostic.text;
    }
    std::string text = diagnostic.file;
    if (diagnostic.line > 0) {
        text += ':' + std::to_string(diagnostic.line);
    }
    return text.append(": ").append(NameOf(diagnostic.severity)).append(": ") + diagnostic.text;
}

}  // namespace corvane::common
