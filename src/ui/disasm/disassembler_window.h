// The listing of the loaded program, made when the window opens.
#pragma once

#include <QTimer>
#include <memory>

#include "ui/printing/printing.h"
#include "ui/window/dialogs_factory.h"
#include "ui/window/progress_frame.h"
#include "ui/window/secondary_window.h"

class QAction;
class QMenuBar;
class QPlainTextEdit;

namespace corvane::ui {

class DisassemblerWindow final : public SecondaryWindow {
    Q_OBJECT
  public:
    DisassemblerWindow(app::Workbench& workbench, const DialogsFactory& makeDialogs);
    ~DisassemblerWindow() override;

    // The toolkit's printer dialog, unless another chooser is set.
    void SetPrinterChooser(PrinterChooser choosePrinter);

    void BringIntoView(int address) override { GoTo(address); }
    bool GoTo(int address) override;

  protected:
    // The listing does not follow program memory.
    void Draw() override {}
    void Opened() override { RunDisassembly(); }

  private:
    void MakeMenus(QMenuBar& menuBar);
    // Lists the program anew. The progress frame stays long enough to be read; the window and the
    // rest of the application stay alive meanwhile, and the window may be closed at any time.
    void RunDisassembly();
    void ShowListing();
    void SetBusy(bool busy);

    void ToggleOpcodes();
    void Save();
    void Print();

    std::unique_ptr<app::Dialogs> dialogs_;
    PrinterChooser choosePrinter_;
    QMenuBar* menuBar_;
    QAction* withoutOpcodes_ = nullptr;
    QPlainTextEdit* viewer_;
    ProgressFrame* progressFrame_;
    QTimer beforeListing_;
    QTimer afterListing_;
};

}  // namespace corvane::ui
