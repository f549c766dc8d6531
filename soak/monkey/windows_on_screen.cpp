#include "monkey/windows_on_screen.h"

#include <QApplication>

namespace corvane::monkey {

namespace {

bool IsAncestor(const QWidget& ancestor, const QWidget* window) {
    for (; window != nullptr; window = window->parentWidget()) {
        if (window == &ancestor) {
            return true;
        }
    }
    return false;
}

bool IsBlockedBy(const QWidget& window, const QWidget& dialog) {
    if (!dialog.isVisible() || IsAncestor(dialog, &window)) {
        return false;
    }
    if (dialog.windowModality() == Qt::ApplicationModal) {
        return true;
    }
    return dialog.windowModality() == Qt::WindowModal && IsAncestor(window, &dialog);
}

}  // namespace

std::vector<QWidget*> ReachableWindows() {
    const QWidgetList all = QApplication::topLevelWidgets();
    std::vector<QWidget*> reachable;
    for (QWidget* window : all) {
        const bool isBlocked = std::any_of(all.begin(), all.end(), [&](const QWidget* dialog) {
            return dialog != window && IsBlockedBy(*window, *dialog);
        });
        if (window->isVisible() && window->windowHandle() != nullptr && !isBlocked) {
            reachable.push_back(window);
        }
    }
    return reachable;
}

std::vector<QAction*> EnabledCommands(const QWidget& window) {
    std::vector<QAction*> commands;
    for (QAction* action : window.findChildren<QAction*>()) {
        const bool isReachable = action->isEnabled() && action->isVisible();
        if (isReachable && !action->isSeparator() && !action->text().isEmpty()) {
            commands.push_back(action);
        }
    }
    return commands;
}

std::vector<QWidget*> VisibleWidgets(QWidget& window) {
    std::vector<QWidget*> widgets = {&window};
    for (QWidget* child : window.findChildren<QWidget*>()) {
        if (child->window() == &window && child->isVisible()) {
            widgets.push_back(child);
        }
    }
    return widgets;
}

}  // namespace corvane::monkey
