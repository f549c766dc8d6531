#include "ui/desktop/going_frame.h"

#include <QApplication>
#include <QShortcut>
#include <string>

namespace corvane::ui {

namespace {

constexpr qint64 kMillisecondsUntilShown = 300;

}  // namespace

GoingFrame::GoingFrame(QWidget& mainWindow, const std::function<void()>& cancel)
    : mainWindow_(&mainWindow),
      escape_(std::make_unique<QShortcut>(QKeySequence(Qt::Key_Escape), &mainWindow)) {
    escape_->setContext(Qt::ApplicationShortcut);
    QObject::connect(escape_.get(), &QShortcut::activated, &mainWindow, cancel);
    sinceBegin_.start();
}

GoingFrame::~GoingFrame() {
    delete frame_;
}

void GoingFrame::LetEventsIn(std::int64_t step) {
    if (!events_.IsDue()) {
        return;
    }
    if (sinceBegin_.hasExpired(kMillisecondsUntilShown)) {
        ShowProgress(step);
    }
    events_.LetEventsIn();
}

void GoingFrame::ShowProgress(std::int64_t step) {
    if (frame_ == nullptr) {
        QWidget* active = QApplication::activeWindow();
        frame_ = new ProgressFrame(QObject::tr("Going through the history"),
                                   active != nullptr ? *active : *mainWindow_);
        frame_->show();
    }
    frame_->ShowProgress(("Step " + std::to_string(step) + ". Escape cancels.").c_str(), 0);
}

}  // namespace corvane::ui
