// Colours between two others.
#pragma once

#include <QColor>

namespace corvane::ui {

// The background with a share, from 0 to 1, of another colour in it. It is opaque.
QColor Tinted(const QColor& background, const QColor& tint, double share);

}  // namespace corvane::ui
