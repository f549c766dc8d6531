// How a test ended, and how its failure is told.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/report.h"
#include "scenario/statement.h"

namespace corvane::scenario {

struct Outcome {
    std::string name;
    std::int64_t clocks = 0;           // that the test took
    std::vector<std::string> failure;  // lines; none when it has passed
    int failedLine = 0;                // of the test file, then
};

// "FILE:LINE: within 1 ms  COUNT == 9"
std::string LineText(std::string_view file, const Statement& statement);

// A text as a test file has it: "OK\r\n"; of a long one only the end, behind "..".
std::string QuotedText(std::string_view bytes);

// Why a program that has ended did so: "SLEEP".
std::string EndText(const core::Processor& processor);

}  // namespace corvane::scenario
