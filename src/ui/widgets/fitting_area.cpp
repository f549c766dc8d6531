#include "ui/widgets/fitting_area.h"

#include <QScrollBar>

namespace corvane::ui {

FittingArea::FittingArea(QWidget* content) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(content);
    horizontalScrollBar()->setAccessibleName(tr("Part of the window, from left to right"));
    verticalScrollBar()->setAccessibleName(tr("Part of the window, from top to bottom"));
}

QSize FittingArea::sizeHint() const {
    return widget()->sizeHint();
}

}  // namespace corvane::ui
