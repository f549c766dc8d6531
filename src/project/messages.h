// What a person is to be told while a program is made, in its order: errors, warnings, notes. A
// message without file stands alone.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "common/diagnostic.h"

namespace corvane::project {

using Messages = std::vector<common::Diagnostic>;

// Adds a message at the end.
inline void Add(Messages& messages, common::Severity severity, std::string file, int line,
                std::string text) {
    messages.push_back(
        {.file = std::move(file), .line = line, .severity = severity, .text = std::move(text)});
}

// Of the file as a whole when the line is 0.
inline void AddError(Messages& messages, std::string file, int line, std::string text) {
    Add(messages, common::Severity::Error, std::move(file), line, std::move(text));
}

// The same for a warning.
inline void AddWarning(Messages& messages, std::string file, int line, std::string text) {
    Add(messages, common::Severity::Warning, std::move(file), line, std::move(text));
}

}  // namespace corvane::project
