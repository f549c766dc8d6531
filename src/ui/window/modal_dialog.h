// How a window shows a dialog and waits for the answer.
#pragma once

#include <QDialog>

namespace corvane::ui {

// QDialog::exec for a dialog of the window, which stays above all windows of the application. A
// window that its closing deletes stays until this function returns, which can be after the person
// has answered: dialogs of other windows that were opened meanwhile return first. A close in
// between takes place then.
// Rejected at once for such a window that is closed already.
int RunModal(QDialog& dialog, QWidget* window);

}  // namespace corvane::ui
