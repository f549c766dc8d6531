// From the lines of a test to what they mean for a program.
#pragma once

#include "common/result.h"
#include "inspect/expression.h"
#include "scenario/statement.h"
#include "scenario/test_file.h"

namespace corvane::scenario {

// The first error, if there is one.
common::Result<Test, ReadError> ReadTest(const TestLines& lines, const inspect::Language& language);

}  // namespace corvane::scenario
