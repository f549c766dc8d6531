// Lets pending events in while a command works on, at most every 10 ms.
#pragma once

#include <QElapsedTimer>

namespace corvane::ui {

class EventPump {
  public:
    EventPump() { sinceEvents_.start(); }

    // True when it is time for LetEventsIn.
    bool IsDue() const;
    void LetEventsIn();

  private:
    QElapsedTimer sinceEvents_;
};

}  // namespace corvane::ui
