// Column headings and captions: smaller than what they stand over.
#pragma once

#include <QLabel>

namespace corvane::ui {

// Give a label the look of a heading, or make one with it.
void MakeHeading(QLabel& label);
QLabel* NewHeading(const QString& text);

}  // namespace corvane::ui
