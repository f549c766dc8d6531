// What happens at a test's pins by itself while time passes.
#pragma once

#include <cstdint>
#include <vector>

#include "scenario/serial_line.h"
#include "scenario/statement.h"

namespace corvane::scenario {

// Times are those of the test, in clock cycles.
class Schedule {
  public:
    // A sender and a listener for each serial line that has such a pin, with its index.
    Schedule(const std::vector<SerialPort>& ports, const inspect::Clock& clock,
             const std::int64_t& timeBeforeStart);

    // Has the run look at the pins that are listened to.
    void Join(inspect::ObservedRun& run);

    // Toggles the pin at this time.
    void Release(core::Pin pin, std::int64_t time) { presses_.push_back({pin, time}); }

    // From here on the line listens, and holds the pin at which it sends.
    void Open(std::size_t serial, inspect::ObservedRun& run);

    void Send(std::size_t serial, const std::string& bytes, std::int64_t now);

    // The time at which ApplyDue must be called next.
    std::int64_t NextDue(std::int64_t now) const;

    // What is due until now.
    void ApplyDue(inspect::ObservedRun& run, std::int64_t now);

    bool Find(std::size_t serial, const std::string& text);
    const std::string& Received(std::size_t serial) const;

  private:
    struct Press {
        core::Pin pin;
        std::int64_t end;
    };
    struct Line {
        std::optional<SerialListener> listener;
        std::optional<SerialSender> sender;
    };

    std::vector<Press> presses_;
    std::vector<Line> lines_;
};

}  // namespace corvane::scenario
