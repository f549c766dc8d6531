// The frame of a test file: what every test starts from, and the lines of each test. What the lines
// mean is read once the program is known (statement_reader.h).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"
#include "inspect/clock.h"
#include "models/catalogue.h"
#include "models/defaults.h"
#include "scenario/line_reader.h"

namespace corvane::scenario {

// "Column 5: .." of a line; lines count from 1.
struct ReadError {
    int line;
    std::string message;
};

struct EepromByte {
    int address;
    int value;  // 0..255
    int line;   // that names it
};

struct Setup {
    std::string program{};  // as written: a path from the test file's folder
    int programLine = 0;
    std::optional<models::NamedModel> model{};
    std::string modelName{};                                  // as written
    float clockFrequency = models::kDefaultClockFrequency;    // MHz
    inspect::Clock clock{};                                   // the same, exactly
    int eepromWriteTime = models::kDefaultEepromWriteTime;    // clock cycles
    int adConversionTime = models::kDefaultAdConversionTime;  // clock cycles
    std::vector<EepromByte> eeprom{};
};

struct TestLine {
    int number;  // in the file, from 1
    std::string text;
};

struct TestLines {
    std::string name;
    int line;
    std::vector<TestLine> lines;
};

struct TestFile {
    Setup setup;
    std::vector<TestLines> tests;  // one or more
};

// The first error, if there is one.
common::Result<TestFile, ReadError> ReadTestFile(std::string_view text);

// An error if a line names a byte of the EEPROM that the model does not have.
std::optional<ReadError> EepromError(const Setup& setup, const models::Model& model);

// The error of a line with its column in words.
ReadError AtColumn(int line, const LineError& error);

}  // namespace corvane::scenario
