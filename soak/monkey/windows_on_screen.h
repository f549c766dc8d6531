// What a person could reach with mouse and keyboard right now.
#pragma once

#include <QAction>
#include <QWidget>
#include <vector>

namespace corvane::monkey {

// The windows, dialogs and menus that no modal dialog keeps from answering.
std::vector<QWidget*> ReachableWindows();

// The enabled commands of a window's menus and of its own.
std::vector<QAction*> EnabledCommands(const QWidget& window);

// The visible widgets in a window, the window among them.
std::vector<QWidget*> VisibleWidgets(QWidget& window);

}  // namespace corvane::monkey
