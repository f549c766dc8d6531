#include "ui/window/command.h"

#include <QAction>

namespace corvane::ui {

namespace {

QAction* NewAction(QObject& owner, const Command& command) {
    auto* action = new QAction(command.caption, &owner);
    action->setObjectName(command.name);
    action->setShortcut(command.keys);
    return action;
}

}  // namespace

QAction* NewCommand(QObject& owner, const Command& command, QObject& receiver,
                    const std::function<void()>& run) {
    QAction* action = NewAction(owner, command);
    QObject::connect(action, &QAction::triggered, &receiver, run, Qt::QueuedConnection);
    return action;
}

QAction* AddCommand(QMenu& menu, const Command& command, QObject& receiver,
                    const std::function<void()>& run) {
    QAction* action = NewCommand(menu, command, receiver, run);
    menu.addAction(action);
    return action;
}

QAction* AddSwitch(QMenu& menu, const Command& command, bool isOn, QObject& receiver,
                   const std::function<void(bool isOn)>& run) {
    QAction* action = NewAction(menu, command);
    action->setCheckable(true);
    action->setChecked(isOn);
    QObject::connect(action, &QAction::triggered, &receiver, run, Qt::QueuedConnection);
    menu.addAction(action);
    return action;
}

}  // namespace corvane::ui
