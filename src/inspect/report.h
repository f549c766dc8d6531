// How a failed expectation and a fault are told.
#pragma once

#include <string>
#include <string_view>

#include "inspect/clock.h"
#include "inspect/expression.h"
#include "inspect/faults.h"
#include "project/program.h"

namespace corvane::inspect {

// A run, the program in it and its clock.
struct Scene {
    Moment moment;
    const project::Program& program;
    Clock clock;
};

// "COUNT = 3 (0x3), PC = 0007 (FILE:LINE)": the names of the expression and where the program is.
std::string ValuesText(const Expression& expression, const Scene& scene);

// "0007 (FILE:LINE)"
std::string PlaceText(int address, const project::Program& program);

// "after 17 steps (84 us)"
std::string AfterText(const Scene& scene);

// "expected never EXPR after 17 steps (84 us): ..", with the reason if it had no value.
std::string FailureText(std::string_view prefix, const Expression& expression, const char* error,
                        const Scene& scene);

// "stack-overflow after 17 steps (84 us) at 0007: .. (FILE:LINE)"
std::string FaultText(const Fault& fault, const Scene& scene);

}  // namespace corvane::inspect
