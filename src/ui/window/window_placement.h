// Where windows open, and where they were when they closed.
#pragma once

#include <QWidget>

#include "app/app_settings.h"

namespace corvane::ui {

// The settings hold twips (1/1440 inch); a device-independent pixel is 1/96 inch.
constexpr int kTwipsPerPixel = 15;

// Moves a window that is about to be shown to the middle of the screen, and makes it no larger than
// that.
void CentreWindow(QWidget& window, const QScreen& screen);

// Moves a window that is about to be shown to its stored position, or to the middle of the screen
// when positions are not kept. It ends up wholly on the screen; one that is larger is made smaller.
void PlaceWindow(QWidget& window, const app::AppSettings& settings, app::Window number);

// Stores the position that the window has when it is neither minimised nor maximised.
void StorePosition(const QWidget& window, const app::AppSettings& settings, app::Window number);

}  // namespace corvane::ui
