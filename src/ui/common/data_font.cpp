#include "ui/common/data_font.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <cmath>

namespace corvane::ui {

QFont DataFont() {
    return QFontDatabase::systemFont(QFontDatabase::FixedFont);
}

QSize DataTextSize(int columns, int lines) {
    const QFontMetricsF metrics(DataFont());
    // An advance need not be a whole number of pixels; lines are laid out on whole ones.
    const qreal width = metrics.horizontalAdvance(QString(columns, QLatin1Char('0')));
    return {static_cast<int>(std::ceil(width)),
            static_cast<int>(std::ceil(metrics.lineSpacing())) * lines};
}

}  // namespace corvane::ui
