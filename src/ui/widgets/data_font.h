// The fixed-pitch system font, in which everything that is data is shown.
#pragma once

#include <QFont>
#include <QSize>

namespace corvane::ui {

// As the settings of the person's desktop have it.
QFont DataFont();

// The size of a text of this many columns and lines, in pixels.
QSize DataTextSize(int columns, int lines);

}  // namespace corvane::ui
