#include "ui/common/command.h"

#include <QAction>

namespace corvane::ui {

QAction* AddCommand(QMenu& menu, const Command& command, QObject& receiver,
                    const std::function<void()>& run) {
    QAction* action = menu.addAction(command.caption);
    action->setObjectName(command.name);
    action->setShortcut(command.keys);
    QObject::connect(action, &QAction::triggered, &receiver, run, Qt::QueuedConnection);
    return action;
}

}  // namespace corvane::ui
