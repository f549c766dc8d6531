#include "ui/window/window_placement.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <algorithm>

namespace corvane::ui {

namespace {

// What a window manager draws around a window that it has not seen yet: borders, and a title bar.
constexpr QSize kFrameAllowance(16, 40);

constexpr const char* kNormalFrame = "normalFrame";

QPoint PixelsOf(app::AppSettings::Position twips) {
    return {twips.left / kTwipsPerPixel, twips.top / kTwipsPerPixel};
}

app::AppSettings::Position TwipsOf(QPoint pixels) {
    return {.left = pixels.x() * kTwipsPerPixel, .top = pixels.y() * kTwipsPerPixel};
}

// The nearest position at which all of a window lies in the area, or its left and top when it is
// too large for that.
QPoint Inside(const QRect& area, QPoint position, const QSize& size) {
    const int right = std::max(area.left(), area.left() + area.width() - size.width());
    const int bottom = std::max(area.top(), area.top() + area.height() - size.height());
    return {std::clamp(position.x(), area.left(), right),
            std::clamp(position.y(), area.top(), bottom)};
}

// A screen may have gone since the position was stored.
QPoint Reachable(QPoint position, const QSize& size) {
    const QScreen* screen = QGuiApplication::screenAt(position + QPoint(size.width() / 2, 0));
    return Inside(
        (screen != nullptr ? screen : QGuiApplication::primaryScreen())->availableGeometry(),
        position, size + kFrameAllowance);
}

QPoint CentredPosition(const QSize& size, const QScreen& screen) {
    QRect centred(QPoint(0, 0), size);
    centred.moveCenter(screen.availableGeometry().center());
    return Inside(screen.availableGeometry(), centred.topLeft(), size + kFrameAllowance);
}

void KeepOnScreen(QWidget& window, const QScreen& screen) {
    const QSize largest = screen.availableGeometry().size() - kFrameAllowance;
    const int scrollBar = window.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    QSize size = window.size();
    if (size.height() > largest.height()) {
        size.rwidth() += scrollBar;  // or a scroll bar for the one needs one for the other
    }
    window.resize(size.boundedTo(largest));
}

QPoint FrameOf(const QWidget& window) {
    return window.geometry().topLeft() - window.frameGeometry().topLeft();
}

// Remembers how thick the frame is while the window is neither maximised nor fills the screen: then
// it is another one.
class FrameWatch final : public QObject {
  public:
    explicit FrameWatch(QWidget& window) : QObject(&window), window_(&window) {
        window.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* /*window*/, QEvent* event) override {
        const bool hasMoved = event->type() == QEvent::Move || event->type() == QEvent::Resize;
        if (hasMoved && !window_->isMaximized() && !window_->isFullScreen()) {
            window_->setProperty(kNormalFrame, FrameOf(*window_));
        }
        return false;
    }

  private:
    QWidget* window_;
};

QPoint NormalPosition(const QWidget& window) {
    if (!window.isMaximized() && !window.isFullScreen()) {
        return window.pos();
    }
    return window.normalGeometry().topLeft() - window.property(kNormalFrame).toPoint();
}

}  // namespace

void CentreWindow(QWidget& window, const QScreen& screen) {
    KeepOnScreen(window, screen);
    window.move(CentredPosition(window.size(), screen));
}

void PlaceWindow(QWidget& window, const app::AppSettings& settings, app::Window number) {
    KeepOnScreen(window, *window.screen());
    new FrameWatch(window);  // its child
    const QPoint centred = CentredPosition(window.size(), *window.screen());
    const std::optional<app::AppSettings::Position> stored =
        settings.ReadPosition(number, TwipsOf(centred));
    window.move(stored ? Reachable(PixelsOf(*stored), window.size()) : centred);
}

void StorePosition(const QWidget& window, const app::AppSettings& settings, app::Window number) {
    settings.WritePosition(number, TwipsOf(NormalPosition(window)));
}

}  // namespace corvane::ui
