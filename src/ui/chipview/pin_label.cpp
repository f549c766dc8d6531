#include "ui/chipview/pin_label.h"

#include <QPainter>
#include <QStringList>

#include "ui/widgets/qt_text.h"

namespace corvane::ui {

namespace {

constexpr QChar kBarMark = u'\\';

// The parts of "\MCLR/VPP", the barred ones with their mark.
QStringList PartsOf(std::string_view label) {
    return QtString(label).split(u'/');
}

QString WithoutMark(const QString& part) {
    return part.startsWith(kBarMark) ? part.mid(1) : part;
}

}  // namespace

QString PinLabelInWords(std::string_view label) {
    QStringList parts = PartsOf(label);
    for (QString& part : parts) {
        if (part.startsWith(kBarMark)) {
            part = QStringLiteral("not ") + WithoutMark(part);
        }
    }
    return parts.join(u'/');
}

PinLabel::PinLabel(std::string_view label) {
    setTextFormat(Qt::PlainText);
    setAccessibleName(PinLabelInWords(label));
    QString shown;
    for (const QString& part : PartsOf(label)) {
        shown += shown.isEmpty() ? QString() : QStringLiteral("/");
        const QString text = WithoutMark(part);
        if (part != text) {
            bars_.append({.before = shown, .barred = text});
        }
        shown += text;
    }
    setText(shown);
}

void PinLabel::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    constexpr qreal kGap = 2;  // between the letters and the bar
    constexpr qreal kThickness = 1;
    const QFontMetricsF metrics(font());
    const QRectF area = contentsRect();
    const qreal textLeft = alignment().testFlag(Qt::AlignRight)
                               ? area.right() - metrics.horizontalAdvance(text())
                               : area.left();
    const qreal baseline = area.center().y() - metrics.height() / 2 + metrics.ascent();
    const qreal top = std::max(area.top(), baseline - metrics.capHeight() - kGap - kThickness);
    QPainter painter(this);
    for (const Bar& bar : bars_) {
        painter.fillRect(QRectF(textLeft + metrics.horizontalAdvance(bar.before), top,
                                metrics.horizontalAdvance(bar.barred), kThickness),
                         palette().color(foregroundRole()));
    }
}

}  // namespace corvane::ui
