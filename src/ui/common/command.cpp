#include "ui/common/command.h"

#include <QAction>

namespace corvane::ui {

namespace {

QAction* Add(QMenu& menu, const Command& command) {
    QAction* action = menu.addAction(command.caption);
    action->setObjectName(command.name);
    action->setShortcut(command.keys);
    return action;
}

}  // namespace

QAction* AddCommand(QMenu& menu, const Command& command, QObject& receiver,
                    const std::function<void()>& run) {
    QAction* action = Add(menu, command);
    QObject::connect(action, &QAction::triggered, &receiver, run, Qt::QueuedConnection);
    return action;
}

QAction* AddSwitch(QMenu& menu, const Command& command, bool isOn, QObject& receiver,
                   const std::function<void(bool isOn)>& run) {
    QAction* action = Add(menu, command);
    action->setCheckable(true);
    action->setChecked(isOn);
    QObject::connect(action, &QAction::triggered, &receiver, run, Qt::QueuedConnection);
    return action;
}

}  // namespace corvane::ui
