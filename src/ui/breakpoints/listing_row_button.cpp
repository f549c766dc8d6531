#include "ui/breakpoints/listing_row_button.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <array>

#include "common/text.h"
#include "ui/widgets/data_font.h"
#include "ui/widgets/qt_text.h"
#include "ui/widgets/tinted.h"

namespace corvane::ui {

namespace {

constexpr int kPadding = 2;
constexpr int kTextGap = 6;  // between the marks and the text

constexpr double kPcShare = 0.18;
constexpr double kBreakpointShare = 0.12;
constexpr double kHoverShare = 0.35;
constexpr double kQuietShare = 0.6;

int LineHeight() {
    return QFontMetrics(DataFont()).lineSpacing() + 2 * kPadding;
}

// The marks stand side by side in squares as high as a line.
QRect MarkArea(int column, int rowHeight) {
    const int side = LineHeight();
    const QRect square(column * side, (rowHeight - side) / 2, side, side);
    const int margin = side / 6;
    return square.adjusted(margin, margin, -margin, -margin);
}

}  // namespace

ListingRowButton::ListingRowButton(int row)
    : breakpointSymbol_(new MarkerSymbol(Marker::Breakpoint, tr("Breakpoint"), this)) {
    setObjectName("linija[" + QString::number(row) + "]");
    breakpointSymbol_->setObjectName("prekidsimbol[" + QString::number(row) + "]");
    setFont(DataFont());
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMaximumHeight(2 * LineHeight());
    Describe();
}

int ListingRowButton::TextLeft() {
    return 2 * LineHeight() + kTextGap;
}

QRect ListingRowButton::PcArea() const {
    return MarkArea(1, height());
}

QSize ListingRowButton::sizeHint() const {
    const QString widest(app::kListingColumns + 1, QLatin1Char('0'));
    return {TextLeft() + fontMetrics().horizontalAdvance(widest), LineHeight()};
}

void ListingRowButton::ShowLine(const app::ListingRow* line) {
    const app::ListingRow shown = line != nullptr ? *line : app::ListingRow{};
    if (text_ == shown.text && address_ == shown.address && isChecked() == shown.hasBreakpoint &&
        hasPc_ == shown.hasPc) {
        return;
    }
    text_ = shown.text;
    address_ = shown.address;
    hasPc_ = shown.hasPc;
    setCheckable(address_.has_value());
    setChecked(shown.hasBreakpoint);
    if (breakpointSymbol_->isHidden() == shown.hasBreakpoint) {
        breakpointSymbol_->setVisible(shown.hasBreakpoint);
    }
    Describe();
    update();
}

void ListingRowButton::Describe() {
    QString description = QtString(common::TrimRight(text_));
    if (isChecked()) {
        description += tr(", breakpoint");
    }
    if (hasPc_) {
        description += tr(", current instruction");
    }
    setAccessibleName(description.isEmpty() ? tr("blank line") : description);
}

void ListingRowButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QColor base = palette().color(QPalette::Base);
    QColor background = base;
    if (hasPc_) {
        background = Tinted(base, ColorOf(Marker::ProgramCounter), kPcShare);
    } else if (isChecked()) {
        background = Tinted(base, ColorOf(Marker::Breakpoint), kBreakpointShare);
    }
    painter.fillRect(rect(), background);
    if (address_ && underMouse() && !isChecked()) {
        PaintMarker(painter, Marker::Breakpoint, MarkArea(0, height()),
                    Tinted(background, ColorOf(Marker::Breakpoint), kHoverShare));
    }
    const QColor ink = palette().color(QPalette::Text);
    painter.setPen(address_ ? ink : Tinted(base, ink, kQuietShare));
    painter.drawText(rect().adjusted(TextLeft(), 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     QtString(text_));
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void ListingRowButton::resizeEvent(QResizeEvent* event) {
    QAbstractButton::resizeEvent(event);
    breakpointSymbol_->setGeometry(MarkArea(0, height()));
}

void ListingRowButton::focusInEvent(QFocusEvent* event) {
    QAbstractButton::focusInEvent(event);
    emit FocusTaken();
}

void ListingRowButton::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Space:
            QAbstractButton::keyPressEvent(event);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            click();
            break;
        default:
            event->ignore();  // the listing moves the focus and scrolls
    }
}

}  // namespace corvane::ui
