#include "ui/widgets/heading.h"

namespace corvane::ui {

void MakeHeading(QLabel& label) {
    QFont small = label.font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    label.setFont(small);
}

QLabel* NewHeading(const QString& text) {
    auto* heading = new QLabel(text);
    MakeHeading(*heading);
    return heading;
}

}  // namespace corvane::ui
