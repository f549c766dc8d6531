// The box around a single value.
#pragma once

#include <QLabel>

namespace corvane::ui {

constexpr int kFieldPadding = 4;  // pixels from the outer edge to the text

// Draws it, with kFieldPadding inside.
void SetFieldFrame(QLabel& label);

}  // namespace corvane::ui
