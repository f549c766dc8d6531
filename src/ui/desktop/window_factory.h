// Which class stands behind each window that can be opened from the main window.
#pragma once

#include "app/workbench.h"
#include "ui/desktop/desktop.h"
#include "ui/window/secondary_window.h"

namespace corvane::ui {

// The caller owns them.
SecondaryWindow* MakeSecondaryWindow(app::Window window, app::Workbench& workbench,
                                     const DialogsFactory& makeDialogs,
                                     const std::string& recoveryFolder);
QWidget* MakeTextWindow(TextWindow text);

}  // namespace corvane::ui
