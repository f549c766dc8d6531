#include "ui/chipview/package_diagram.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "ui/chipview/pin_label.h"
#include "ui/widgets/qt_text.h"

namespace corvane::ui {

namespace {

using models::PackagePin;
using models::PackageSide;

constexpr int kLeadLength = 14;
constexpr int kLeadWidth = 6;
constexpr int kBodyEnd = 18;  // from an end of the body to the next row of pins
constexpr int kMiddleWidth = 60;
constexpr int kNumberMargin = 6;
constexpr int kNotchRadius = 9;
constexpr int kDotDistance = 11;
constexpr double kDotRadius = 2.5;

// The right side mirrors the left one.
int GridColumn(PackageDiagram::Column column, PackageSide side) {
    const auto left = static_cast<int>(column);
    return side == PackageSide::Left ? left
                                     : 2 * static_cast<int>(PackageDiagram::Column::Middle) - left;
}

// The first and the last row of the grid are the ends of the body.
int GridRow(const PackagePin& pin) {
    return pin.row + 1;
}

QPainterPath OutlineOf(const QRectF& body) {
    const QRectF notch(body.center().x() - kNotchRadius, body.top() - kNotchRadius,
                       2 * kNotchRadius, 2 * kNotchRadius);
    QPainterPath outline(body.topLeft());
    outline.lineTo(notch.left(), body.top());
    outline.arcTo(notch, 180, 180);
    outline.lineTo(body.topRight());
    outline.lineTo(body.bottomRight());
    outline.lineTo(body.bottomLeft());
    outline.closeSubpath();
    return outline;
}

}  // namespace

PackageDiagram::PackageDiagram(const models::Model& model)
    : partName_(QtString(model.name)), grid_(new QGridLayout(this)) {
    setAccessibleName(partName_);
    setLayoutDirection(Qt::LeftToRight);  // a package is never mirrored
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setHorizontalSpacing(6);
    grid_->setVerticalSpacing(3);
    for (const PackagePin& pin : models::PackagePins(model.family)) {
        AddPin(pin);
        rowCount_ = std::max(rowCount_, pin.row + 1);
    }
    grid_->setRowMinimumHeight(0, kBodyEnd);
    grid_->setRowMinimumHeight(rowCount_ + 1, kBodyEnd);
    for (const PackageSide side : {PackageSide::Left, PackageSide::Right}) {
        grid_->setColumnMinimumWidth(GridColumn(Column::Lead, side), kLeadLength);
        grid_->setColumnStretch(GridColumn(Column::Label, side), 1);
    }
    grid_->setColumnMinimumWidth(static_cast<int>(Column::Middle), kMiddleWidth);
}

void PackageDiagram::AddPin(const PackagePin& pin) {
    const bool isLeft = pin.side == PackageSide::Left;
    const Qt::Alignment outwards = isLeft ? Qt::AlignLeft : Qt::AlignRight;
    const Qt::Alignment inwards = isLeft ? Qt::AlignRight : Qt::AlignLeft;
    Put(new PinLabel(pin.label), pin, Column::Label, inwards | Qt::AlignVCenter);
    auto* number = new QLabel(QString::number(pin.number));
    number->setMargin(kNumberMargin);
    Put(number, pin, Column::Number, outwards | Qt::AlignVCenter);
    grid_->setRowStretch(GridRow(pin), 1);
}

void PackageDiagram::Put(QWidget* control, const PackagePin& place, Column column,
                         Qt::Alignment alignment) {
    grid_->addWidget(control, GridRow(place), GridColumn(column, place.side), alignment);
}

void PackageDiagram::PutInside(QWidget* control) {
    grid_->addWidget(control, 1, static_cast<int>(Column::Middle), rowCount_, 1, Qt::AlignCenter);
}

QRect PackageDiagram::Body() const {
    return grid_->cellRect(0, GridColumn(Column::Number, PackageSide::Left)) |
           grid_->cellRect(rowCount_ + 1, GridColumn(Column::Number, PackageSide::Right));
}

void PackageDiagram::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(0.5, 0.5);  // a line of one pixel fills that pixel
    painter.setPen(palette().color(QPalette::WindowText));

    const QRect body = Body().adjusted(0, 0, -1, -1);
    painter.setBrush(palette().color(QPalette::Button));
    for (int row = 1; row <= rowCount_; ++row) {
        const QRect cell = grid_->cellRect(row, static_cast<int>(Column::Lead));
        const int top = cell.top() + (cell.height() - kLeadWidth) / 2;
        painter.drawRect(body.left() - kLeadLength, top, kLeadLength, kLeadWidth);
        painter.drawRect(body.right(), top, kLeadLength, kLeadWidth);
    }
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawPath(OutlineOf(body));

    painter.setBrush(palette().color(QPalette::WindowText));
    painter.drawEllipse(QPointF(body.left() + kDotDistance, body.top() + kDotDistance), kDotRadius,
                        kDotRadius);  // marks pin 1

    painter.translate(body.center());
    painter.rotate(-90);
    const QRect turned(-body.height() / 2, -body.width() / 2, body.height(), body.width());
    painter.drawText(turned, Qt::AlignCenter, partName_);
}

}  // namespace corvane::ui
