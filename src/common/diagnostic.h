// What a person is told about a place in a file.
#pragma once

#include <string>

namespace corvane::common {

enum class Severity { Error, Warning, Note };

struct Diagnostic {
    std::string file{};  // as the person named it; empty from a translator, which reads a text
    int line = 0;        // from 1; 0 when the file as a whole is meant
    int column = 0;      // from 1; 0 when the line as a whole is meant
    Severity severity = Severity::Error;
    std::string text{};  // a sentence, without place and severity
};

// "Error in line 3: Syntax error.", or "Warning in line 3: .."
std::string TextWithLine(const Diagnostic& diagnostic);

// "FILE:LINE: warning: TEXT", the form that editors and CI systems parse; without the line when it
// is 0, and the text alone without a file.
std::string TextWithFile(const Diagnostic& diagnostic);

}  // namespace corvane::common
