#include "project/statistics.h"

#include <cmath>

#include "common/decimal_text.h"

namespace corvane::project {

namespace {

// Whole part and hundredths as two plain numbers, so that 12.05 is written 12.5 and 3 is 3.0.
template <typename Real>
std::string WholeAndHundredths(Real x) {
    const Real whole = std::floor(x);
    const Real hundredths = std::floor((x - whole) * 100);
    return std::to_string(static_cast<std::int64_t>(whole)) + "." +
           std::to_string(static_cast<std::int64_t>(hundredths));
}

}  // namespace

std::string StatisticsMessage(const core::ProcessorState& state, float startTime, float currentTime,
                              float clockFrequency) {
    constexpr float kSecondsOfADay = 86400;
    const float start = currentTime < startTime ? startTime - kSecondsOfADay : startTime;
    const float elapsed = currentTime - start;
    const double microseconds =
        static_cast<double>(state.clockCycles) / static_cast<double>(clockFrequency);
    return "Total number of executed instructions is " + std::to_string(state.instructionCount) +
           ".\r\n" + WholeAndHundredths(elapsed) + " seconds elapsed.\r\n" +
           "Real-time duration of the simulation is " + std::to_string(state.clockCycles) +
           " clock cycles or " + WholeAndHundredths(microseconds) + " \xC2\xB5s at " +
           common::DecimalText(clockFrequency) + " MHz.";
}

}  // namespace corvane::project
