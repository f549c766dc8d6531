#include "ui/window/refresh_when_visible.h"

#include <QEvent>
#include <QWidget>
#include <utility>

namespace corvane::ui {

RefreshWhenVisible::RefreshWhenVisible(QWidget& window, std::function<void()> draw)
    : QObject(&window), window_(&window), draw_(std::move(draw)) {
    window.installEventFilter(this);
}

void RefreshWhenVisible::Request() {
    isStale_ = !window_->isVisible() || window_->isMinimized();
    if (!isStale_) {
        draw_();
    }
}

bool RefreshWhenVisible::eventFilter(QObject* watched, QEvent* event) {
    const bool mayHaveAppeared =
        event->type() == QEvent::Show || event->type() == QEvent::WindowStateChange;
    if (isStale_ && watched == window_ && mayHaveAppeared) {
        Request();
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace corvane::ui
