#include "ui/widgets/path_label.h"

#include <QPainter>
#include <QStyle>

#include "ui/widgets/data_font.h"
#include "ui/widgets/field_frame.h"
#include "ui/window/accessible_window.h"

namespace corvane::ui {

PathLabel::PathLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setFont(DataFont());
    SetFieldFrame(*this);
    MakeAccessibleAsValue(*this);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void PathLabel::ShowPath(const QString& path) {
    setText(path);
    setToolTip(path);
}

QSize PathLabel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 12, QLabel::minimumSizeHint().height()};
}

void PathLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawFrame(&painter);
    const QRect area = contentsRect().adjusted(margin(), 0, -margin(), 0);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, area.width());
    style()->drawItemText(&painter, area, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                          shown, foregroundRole());
}

}  // namespace corvane::ui
