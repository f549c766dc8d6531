// What all passes over the lines have in common.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "asm/assembler.h"
#include "common/progress.h"

namespace corvane::assembler {

// Every failed check of a line counts; the line keeps the last message and its note.
inline void Report(Assembly& assembly, AsmLine& line, std::string_view message,
                   std::string note = "") {
    const auto number = static_cast<int>(&line - assembly.lines.data()) + 1;
    if (!assembly.notes.empty() && assembly.notes.back().line == number) {
        assembly.notes.pop_back();
    }
    if (!note.empty()) {
        assembly.notes.push_back(
            {.line = number, .severity = common::Severity::Note, .text = std::move(note)});
    }
    line.hasError = true;
    line.errorMessage = message;
    ++assembly.errorCount;
}

// Calls pass(line) for each line, whose number from 1 on the progress is told first.
template <typename Pass>
void ForEachLine(Assembly& assembly, std::string_view status,
                 const common::ProgressCallback& progress, Pass pass) {
    int lineNumber = 0;
    for (AsmLine& line : assembly.lines) {
        ++lineNumber;
        if (progress) {
            progress(status, lineNumber);
        }
        pass(line);
    }
}

}  // namespace corvane::assembler
