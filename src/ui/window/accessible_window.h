// What the toolkit does not tell assistive technology of a widget by itself.
#pragma once

#include <QLabel>
#include <QWidget>

namespace corvane::ui {

// The widget is a window, which the toolkit says of dialogs only. To be called by its constructor.
void MakeAccessibleAsWindow(QWidget& window);

// The label's name is its text, also an empty one: the toolkit would call it after the group that
// it stands in. To be called by its constructor.
void MakeAccessibleAsValue(QLabel& label);

}  // namespace corvane::ui
