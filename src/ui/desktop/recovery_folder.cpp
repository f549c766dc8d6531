#include "ui/desktop/recovery_folder.h"

#include <QStandardPaths>

namespace corvane::ui {

std::string RecoveryFolder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return folder.toStdString() + "/Corvane/Recovery";
}

}  // namespace corvane::ui
