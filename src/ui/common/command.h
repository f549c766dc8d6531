// The one way to make an entry of a menu.
#pragma once

#include <QKeySequence>
#include <QMenu>
#include <functional>

namespace corvane::ui {

struct Command {
    const char* name;  // objectName
    QString caption;
    QKeySequence keys{};
};

// Queued: a command may wait for a person's answer, and whoever chose it (assistive technology,
// say) must not have to wait with it. It does not run once the receiver is gone.
QAction* AddCommand(QMenu& menu, const Command& command, QObject& receiver,
                    const std::function<void()>& run);

// A command that switches something: run gets the new state.
QAction* AddSwitch(QMenu& menu, const Command& command, bool isOn, QObject& receiver,
                   const std::function<void(bool isOn)>& run);

}  // namespace corvane::ui
