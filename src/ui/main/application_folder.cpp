#include "ui/main/application_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace corvane::ui {

std::string ApplicationFolder() {
    const QDir executables(QCoreApplication::applicationDirPath());
    const bool holdsModels =
        !executables.entryList({QStringLiteral("pic16*.cfg")}, QDir::Files).isEmpty();
    const QString folder =
        holdsModels ? executables.path()
                    : QDir::cleanPath(executables.filePath(CORVANE_MODELS_FROM_EXECUTABLE));
    return folder.toStdString() + "/";
}

std::string RecoveryFolder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return folder.toStdString() + "/Corvane/Recovery";
}

}  // namespace corvane::ui
