// What drives a simulation that runs by itself.
#pragma once

#include <chrono>

namespace corvane::app {

class SliceTimer {
  public:
    virtual ~SliceTimer() = default;

    // Call SimulationControl::RunSlice once, as soon as the delay has passed and pending events
    // are done with. A new request takes the place of one that still waits.
    virtual void ScheduleSlice(std::chrono::nanoseconds delay) = 0;
};

}  // namespace corvane::app
