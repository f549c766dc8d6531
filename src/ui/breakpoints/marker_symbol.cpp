#include "ui/breakpoints/marker_symbol.h"

#include <QPainter>
#include <algorithm>
#include <array>

namespace corvane::ui {

QColor ColorOf(Marker marker) {
    return marker == Marker::Breakpoint ? QColor(224, 48, 48) : QColor(32, 136, 232);
}

void PaintMarker(QPainter& painter, Marker marker, const QRect& area, const QColor& color) {
    const double side = std::min(area.width(), area.height());
    QRectF square(0, 0, side, side);
    square.moveCenter(QRectF(area).center());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    if (marker == Marker::Breakpoint) {
        painter.drawEllipse(square);
    } else {
        const auto point = [&](double x, double y) {
            return square.topLeft() + QPointF(x, y) * side;
        };
        const std::array arrow = {point(0, 0.32), point(0.45, 0.32), point(0.45, 0.06),
                                  point(1, 0.5),  point(0.45, 0.94), point(0.45, 0.68),
                                  point(0, 0.68)};
        painter.drawPolygon(arrow.data(), static_cast<int>(arrow.size()));
    }
    painter.restore();
}

MarkerSymbol::MarkerSymbol(Marker marker, const QString& meaning, QWidget* parent)
    : QWidget(parent), marker_(marker) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleName(meaning);
    hide();
}

void MarkerSymbol::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    PaintMarker(painter, marker_, rect(), ColorOf(marker_));
}

}  // namespace corvane::ui
