// While the simulation goes through its history: lets events in, and shows after a while how far it
// has come.
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <cstdint>
#include <functional>
#include <memory>

#include "ui/window/event_pump.h"
#include "ui/window/progress_frame.h"

class QShortcut;

namespace corvane::ui {

class GoingFrame {
  public:
    // Escape, in any window, cancels.
    GoingFrame(QWidget& mainWindow, const std::function<void()>& cancel);
    ~GoingFrame();
    GoingFrame(const GoingFrame&) = delete;
    GoingFrame& operator=(const GoingFrame&) = delete;

    void LetEventsIn(std::int64_t step);

  private:
    void ShowProgress(std::int64_t step);

    QWidget* mainWindow_;
    EventPump events_;
    QElapsedTimer sinceBegin_;
    std::unique_ptr<QShortcut> escape_;
    QPointer<ProgressFrame> frame_;  // in the window that was active when it was shown
};

}  // namespace corvane::ui
