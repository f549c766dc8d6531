#include "ui/window/event_pump.h"

#include <QCoreApplication>

namespace corvane::ui {

namespace {

constexpr qint64 kMillisecondsBetween = 10;

}  // namespace

bool EventPump::IsDue() const {
    return sinceEvents_.hasExpired(kMillisecondsBetween);
}

void EventPump::LetEventsIn() {
    QCoreApplication::processEvents();
    sinceEvents_.start();
}

}  // namespace corvane::ui
