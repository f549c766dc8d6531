#include "ui/printing/printing.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include "app/page_layout.h"
#include "ui/widgets/qt_text.h"
#include "ui/window/modal_dialog.h"

namespace corvane::ui {

namespace {

constexpr double kMillimetresPerInch = 25.4;

std::vector<app::PrintedPage> PagesFor(const QPrinter& printer, const QFontMetricsF& metrics,
                                       const QString& title, const QString& text) {
    const double dotsPerMillimetre = printer.resolution() / kMillimetresPerInch;
    const QRectF printable = printer.pageRect(QPrinter::Millimeter);
    const app::PageMetrics page = {.printableWidth = printable.width(),
                                   .printableHeight = printable.height(),
                                   .lineHeight = metrics.lineSpacing() / dotsPerMillimetre};
    const auto textWidth = [&](std::string_view line) {
        return metrics.horizontalAdvance(QtString(line)) / dotsPerMillimetre;
    };
    return app::LayOutPages(title.toStdString(), text.toStdString(), printer.copyCount(), page,
                            textWidth);
}

void PaintPages(QPrinter& printer, const QFont& font, const QFontMetricsF& metrics,
                const std::vector<app::PrintedPage>& pages) {
    QPainter painter;
    if (!painter.begin(&printer)) {
        return;  // the printer is gone, or the file cannot be written
    }
    painter.setFont(font);
    const double dotsPerMillimetre = printer.resolution() / kMillimetresPerInch;
    bool isFirst = true;
    for (const app::PrintedPage& page : pages) {
        if (!isFirst) {
            printer.newPage();
        }
        isFirst = false;
        for (const app::PrintedLine& line : page) {
            painter.drawText(QPointF(app::kPageMargin * dotsPerMillimetre,
                                     line.top * dotsPerMillimetre + metrics.ascent()),
                             QtString(line.text));
        }
    }
}

}  // namespace

PrinterChooser PrinterDialogOf(QWidget& window) {
    return [&window](QPrinter& printer) {
        QPrintDialog dialog(&printer, &window);
        return RunModal(dialog, &window) == QDialog::Accepted;
    };
}

void PrintText(const PrinterChooser& choosePrinter, const QString& title, const QString& text,
               const QFont& font) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    if (!choosePrinter(printer)) {
        return;
    }
    const QFontMetricsF metrics(font, &printer);
    const std::vector<app::PrintedPage> pages = PagesFor(printer, metrics, title, text);
    printer.setCopyCount(1);  // the pages hold the copies
    PaintPages(printer, font, metrics, pages);
}

}  // namespace corvane::ui
