#include "app/clock.h"

#include <ctime>

namespace corvane::app {

std::chrono::nanoseconds SystemClock::SteadyTime() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

float SystemClock::SecondsSinceMidnight() {
    std::timespec now{};
    std::timespec_get(&now, TIME_UTC);
    std::tm local{};
    localtime_r(&now.tv_sec, &local);
    const double seconds = local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec +
                           static_cast<double>(now.tv_nsec) / 1e9;
    return static_cast<float>(seconds);
}

}  // namespace corvane::app
