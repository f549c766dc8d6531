#include "common/diagnostic.h"

namespace corvane::common {

std::string TextWithLine(const Diagnostic& diagnostic) {
    const bool isWarning = diagnostic.severity == Severity::Warning;
    return std::string(isWarning ? "Warning" : "Error") + " in line " +
           std::to_string(diagnostic.line) + ": " + diagnostic.text;
}

}  // namespace corvane::common
