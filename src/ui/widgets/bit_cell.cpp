#include "ui/widgets/bit_cell.h"

#include <QFontMetrics>
#include <QPainter>

#include "ui/widgets/data_font.h"

namespace corvane::ui {

namespace {

QString StateInWords(BitState state) {
    switch (state) {
        case BitState::Clear:
            return QStringLiteral("0");
        case BitState::Set:
            return QStringLiteral("1");
        case BitState::Unimplemented:
            break;
    }
    return QStringLiteral("not implemented");
}

}  // namespace

BitCell::BitCell(QWidget* parent) : QLabel(parent) {
    const int height = QFontMetrics(DataFont()).height();
    setFixedSize(height + height / 8, height);
    setAttribute(Qt::WA_OpaquePaintEvent);
    Describe();
}

QColor BitCell::ColourOf(BitState state) {
    switch (state) {
        case BitState::Clear:
            return {255, 255, 255};
        case BitState::Set:
            return {255, 128, 128};
        case BitState::Unimplemented:
            break;
    }
    return {224, 224, 224};
}

void BitCell::SetMeaning(const QString& meaning) {
    if (meaning_ != meaning) {
        meaning_ = meaning;
        Describe();
    }
}

void BitCell::ShowState(BitState state) {
    if (state_ != state) {
        state_ = state;
        Describe();
        update();
    }
}

QString BitCell::StateText() const {
    return state_ == BitState::Unimplemented ? QString() : StateInWords(state_);
}

void BitCell::Describe() {
    const QString text = meaning_.isEmpty() ? QString() : meaning_ + ": " + StateInWords(state_);
    // Without a name it would be called after the group that it stands in.
    setAccessibleName(text.isEmpty() ? tr("empty") : text);
    setAccessibleDescription(text);
    setToolTip(text);
}

void BitCell::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const int border = hasFocus() ? 3 : 1;
    painter.fillRect(rect(), palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
    painter.fillRect(rect().adjusted(border, border, -border, -border), ColourOf(state_));
}

}  // namespace corvane::ui
