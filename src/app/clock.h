// The two clocks of a simulation, behind an interface so that tests need not wait.
#pragma once

#include <chrono>

namespace corvane::app {

class Clock {
  public:
    virtual ~Clock() = default;

    // A time that only moves forward, from an arbitrary origin.
    virtual std::chrono::nanoseconds SteadyTime() = 0;
    // Local time of day.
    virtual float SecondsSinceMidnight() = 0;
};

class SystemClock final : public Clock {
  public:
    std::chrono::nanoseconds SteadyTime() override;
    float SecondsSinceMidnight() override;
};

}  // namespace corvane::app
