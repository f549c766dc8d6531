// What is told of tests: texts for people, and files for other tools.
#pragma once

#include <string>
#include <vector>

#include "inspect/clock.h"
#include "scenario/outcome.h"

namespace corvane::scenario {

// The tests of one file.
struct FileReport {
    std::string file;
    inspect::Clock clock;
    std::vector<Outcome> outcomes;
};

// "ok   FILE: NAME (TIME)" or "FAIL ..", with indented lines below. Every text ends with LF.
std::string OutcomeText(const FileReport& report, const Outcome& outcome);

// "N passed, M failed"
std::string SummaryText(const std::vector<FileReport>& reports);

// Test Anything Protocol, version 13.
std::string TapText(const std::vector<FileReport>& reports);

// JUnit's XML; times are simulated seconds.
std::string JUnitText(const std::vector<FileReport>& reports);

// How many have failed.
int FailureCount(const FileReport& report);

}  // namespace corvane::scenario
