// Tells assistive technology that a widget is a window, which the toolkit says of dialogs only.
#pragma once

#include <QWidget>

namespace corvane::ui {

// To be called by the window's constructor.
void MakeAccessibleAsWindow(QWidget& window);

}  // namespace corvane::ui
