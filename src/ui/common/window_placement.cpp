#include "ui/common/window_placement.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

namespace corvane::ui {

namespace {

constexpr int kReachableWidth = 80;  // pixels of a title bar that one can still grasp

QPoint PixelsOf(app::AppSettings::Position twips) {
    return {twips.left / kTwipsPerPixel, twips.top / kTwipsPerPixel};
}

app::AppSettings::Position TwipsOf(QPoint pixels) {
    return {.left = pixels.x() * kTwipsPerPixel, .top = pixels.y() * kTwipsPerPixel};
}

// A screen may have gone since the position was stored.
QPoint Reachable(QPoint position, const QSize& size) {
    const QScreen* screen = QGuiApplication::screenAt(position + QPoint(size.width() / 2, 0));
    const QRect area =
        (screen != nullptr ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    const int left = std::clamp(position.x(), area.left() - size.width() + kReachableWidth,
                                area.right() - kReachableWidth);
    const int top = std::clamp(position.y(), area.top(), area.bottom() - kReachableWidth);
    return {left, top};
}

QPoint CentredPosition(const QSize& size, const QScreen& screen) {
    QRect centred(QPoint(0, 0), size);
    centred.moveCenter(screen.availableGeometry().center());
    return centred.topLeft();
}

QPoint NormalPosition(const QWidget& window) {
    if (!window.isMaximized() && !window.isFullScreen()) {
        return window.pos();
    }
    const QPoint frame = window.geometry().topLeft() - window.frameGeometry().topLeft();
    return window.normalGeometry().topLeft() - frame;
}

}  // namespace

void CentreWindow(QWidget& window, const QScreen& screen) {
    window.move(CentredPosition(window.size(), screen));
}

void PlaceWindow(QWidget& window, const app::AppSettings& settings, app::Window number) {
    const QPoint centred = CentredPosition(window.size(), *window.screen());
    const std::optional<app::AppSettings::Position> stored =
        settings.ReadPosition(number, TwipsOf(centred));
    window.move(stored ? Reachable(PixelsOf(*stored), window.size()) : centred);
}

void StorePosition(const QWidget& window, const app::AppSettings& settings, app::Window number) {
    settings.WritePosition(number, TwipsOf(NormalPosition(window)));
}

}  // namespace corvane::ui
