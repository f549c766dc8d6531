// The icon that stands for the application in task bars and in its About window.
#pragma once

#include <QIcon>

namespace corvane::ui {

// In every size in which it is drawn.
QIcon ApplicationIcon();

}  // namespace corvane::ui
