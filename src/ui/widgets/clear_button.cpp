#include "ui/widgets/clear_button.h"

#include <QAction>
#include <QLineEdit>

namespace corvane::ui {

void AddClearButton(QLineEdit& line, const QString& name) {
    line.setClearButtonEnabled(true);
    for (QAction* clear : line.findChildren<QAction*>()) {
        clear->setText(name);  // the toolkit's button has but an icon
    }
}

}  // namespace corvane::ui
