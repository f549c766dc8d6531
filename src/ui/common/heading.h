// Column headings and captions: smaller than what they stand over.
#pragma once

#include <QLabel>

namespace corvane::ui {

void MakeHeading(QLabel& label);
QLabel* NewHeading(const QString& text);

}  // namespace corvane::ui
