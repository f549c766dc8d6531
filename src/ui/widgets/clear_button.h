// The button that empties a line of text.
#pragma once

#include <QString>

class QLineEdit;

namespace corvane::ui {

// The name is what a screen reader says; the button itself has but a picture.
void AddClearButton(QLineEdit& line, const QString& name);

}  // namespace corvane::ui
