// The one way to make a command: an entry of a menu, or a key of a window.
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
QAction* NewCommand(QObject& owner, const Command& command, QObject& receiver,
                    const std::function<void()>& run);

// The same, as the next entry of a menu.
QAction* AddCommand(QMenu& menu, const Command& command, QObject& receiver,
                    const std::function<void()>& run);

// A command that switches something: run gets the new state.
QAction* AddSwitch(QMenu& menu, const Command& command, bool isOn, QObject& receiver,
                   const std::function<void(bool isOn)>& run);

}  // namespace corvane::ui
