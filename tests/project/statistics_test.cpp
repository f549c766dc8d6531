// The figures at the end of a simulation.
#include "project/statistics.h"

#include <gtest/gtest.h>

namespace corvane::project {
namespace {

TEST(StatisticsMessage, WritesNumbersAsIntegerAndHundredths) {
    struct Case {
        std::int64_t instructions, clocks;
        float start, current, frequency;
        std::string seconds, microseconds, megahertz;
    };
    const Case cases[] = {
        {1000, 4004, 10.0F, 22.5F, 4.0F, "12.50", "1001.0", "4"},
        {0, 4, 86399.0F, 2.0F, 20.0F, "3.0", "0.20", "20"},  // over midnight
        // 11.4539... microseconds, 6.25 hundredths
        {7, 41, 0.0F, 1.0625F, 3.579545F, "1.6", "11.45", "3.579545"},
        {5000000000, 20000000000, 1.0F, 1.0F, 0.5F, "0.0", "40000000000.0", "0.5"},
    };
    for (const Case& c : cases) {
        core::ProcessorState state;
        state.instructionCount = c.instructions;
        state.clockCycles = c.clocks;
        EXPECT_EQ(StatisticsMessage(state, c.start, c.current, c.frequency),
                  "Total number of executed instructions is " + std::to_string(c.instructions) +
                      ".\r\n" + c.seconds + " seconds elapsed.\r\n" +
                      "Real-time duration of the simulation is " + std::to_string(c.clocks) +
                      " clock cycles or " + c.microseconds + " \u00B5s at " + c.megahertz +
                      " MHz.");
    }
}

}  // namespace
}  // namespace corvane::project
