#include "inspect/clock.h"

#include <gtest/gtest.h>

#include "case_file.h"

namespace corvane::inspect {
namespace {

TEST(Clock, DurationsAreExactClockCycles) {
    ExpectCases("tests/inspect/clock.txt", [](const std::string& line) -> std::string {
        const std::size_t blank = line.find(' ');
        const std::optional<Clock> clock = ReadClock(line.substr(0, blank));
        const auto clocks = clock ? ReadDuration(line.substr(blank + 1), *clock) : std::nullopt;
        return clocks ? std::to_string(*clocks) + " " + TimeText(*clocks, *clock) : "none";
    });
}

TEST(Clock, PicosecondsAndSecondsAreRounded) {
    const Clock crystal = *ReadClock("3.579545");
    EXPECT_EQ(Picoseconds(1, crystal), 279365);   // 279365.12
    EXPECT_EQ(Picoseconds(3, crystal), 838095);   // 838095.34
    EXPECT_EQ(Picoseconds(5, crystal), 1396826);  // 1396825.57
    EXPECT_EQ(SecondsText(84, *ReadClock("4")), "0.000021");
    EXPECT_EQ(SecondsText(4'000'000'000, *ReadClock("4")), "1000");
}

TEST(Clock, PeriodsOfABaudRateEndBetweenClockCycles) {
    const Clock clock = *ReadClock("4");  // 9600 baud: 416.67 clock cycles a bit
    EXPECT_EQ(ClocksInHalfPeriodsDown(3, 9600, clock), 625);
    EXPECT_EQ(ClocksInHalfPeriodsDown(5, 9600, clock), 1041);
    EXPECT_EQ(ClocksInHalfPeriodsUp(2, 9600, clock), 417);
    EXPECT_EQ(ClocksInHalfPeriodsUp(6, 9600, clock), 1250);
}

}  // namespace
}  // namespace corvane::inspect
