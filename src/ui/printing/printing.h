// Prints a text on a printer that the person chooses, or into a PDF file.
#pragma once

#include <QFont>
#include <QString>
#include <functional>

class QPrinter;
class QWidget;

namespace corvane::ui {

// Asks for the printer and its copies; false when nothing is to be printed.
using PrinterChooser = std::function<bool(QPrinter& printer)>;

// The toolkit's printer dialog, modal to the window.
PrinterChooser PrinterDialogOf(QWidget& window);

// Prints the text page by page in this font, under a header with page number and title.
void PrintText(const PrinterChooser& choosePrinter, const QString& title, const QString& text,
               const QFont& font);

}  // namespace corvane::ui
