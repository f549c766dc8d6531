#include "ui/widgets/data_font.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <cmath>

namespace corvane::ui {

QFont DataFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!QFontInfo(font).fixedPitch()) {  // a desktop that has none set
        font.setFamily(QStringLiteral("monospace"));
        font.setStyleHint(QFont::Monospace);
    }
    return font;
}

QSize DataTextSize(int columns, int lines) {
    const QFontMetricsF metrics(DataFont());
    // An advance need not be a whole number of pixels; lines are laid out on whole ones.
    const qreal width = metrics.horizontalAdvance(QString(columns, QLatin1Char('0')));
    return {static_cast<int>(std::ceil(width)),
            static_cast<int>(std::ceil(metrics.lineSpacing())) * lines};
}

}  // namespace corvane::ui
