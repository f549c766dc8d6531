#include "ui/desktop/instance_lock.h"

#include <QStandardPaths>

namespace corvane::ui {

InstanceLock::InstanceLock()
    : file_(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) +
            QStringLiteral("/corvane.lock")) {
    file_.setStaleLockTime(0);  // however long the other instance has been running
    // Where no lock file can be made, nothing keeps this instance from starting.
    isHeldByAnother_ = !file_.tryLock(0) && file_.error() == QLockFile::LockFailedError;
}

}  // namespace corvane::ui
