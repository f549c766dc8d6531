#include "ui/desktop/application_icon.h"

namespace corvane::ui {

QIcon ApplicationIcon() {
    QIcon icon;
    for (const int size : {32, 64, 128}) {
        icon.addFile(QStringLiteral(":/icons/corvane-%1.png").arg(size));
    }
    return icon;
}

}  // namespace corvane::ui
