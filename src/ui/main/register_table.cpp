#include "ui/main/register_table.h"

#include <QCoreApplication>
#include <QWheelEvent>
#include <algorithm>

namespace corvane::ui {

RegisterTable::RegisterTable(const QString& title, const QString& scrollBarName, int visibleRows)
    : QGroupBox(title), visibleRows_(visibleRows), scrollBar_(new QScrollBar(Qt::Vertical)) {
    scrollBar_->setObjectName(scrollBarName);
    scrollBar_->setAccessibleName(title);
    scrollBar_->setPageStep(visibleRows);
    connect(scrollBar_, &QScrollBar::valueChanged, this, &RegisterTable::Scrolled);
    SetListSize(0);
}

void RegisterTable::SetListSize(std::size_t size) {
    const int last = std::max(1, static_cast<int>(size) - visibleRows_ + 1);
    scrollBar_->setRange(1, last);
    scrollBar_->setValue(1);
    scrollBar_->setEnabled(last > 1);
}

void RegisterTable::wheelEvent(QWheelEvent* event) {
    QCoreApplication::sendEvent(scrollBar_, event);
}

}  // namespace corvane::ui
