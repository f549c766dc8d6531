#include "ui/disasm/disassembler_window.h"

#include <QFileInfo>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QVBoxLayout>
#include <chrono>
#include <utility>

#include "app/source_file.h"
#include "common/number_text.h"
#include "common/settings_store.h"
#include "common/text.h"
#include "disasm/listing.h"
#include "ui/widgets/data_font.h"
#include "ui/widgets/qt_text.h"
#include "ui/window/command.h"

namespace corvane::ui {

namespace {

// How long the progress frame is seen before and after the listing is made, which itself takes a
// few milliseconds for the largest program memory.
constexpr std::chrono::milliseconds kFrameSeen(300);

constexpr int kInitialColumns = 56;
constexpr int kInitialLines = 32;  // none of them cut

QPlainTextEdit* NewViewer() {
    auto* viewer = new QPlainTextEdit;
    viewer->setObjectName("RichTextBox1");
    viewer->setAccessibleName(QObject::tr("Disassembler listing"));
    viewer->setFont(DataFont());
    viewer->setLineWrapMode(QPlainTextEdit::NoWrap);
    viewer->setReadOnly(true);
    viewer->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    viewer->setUndoRedoEnabled(false);
    return viewer;
}

}  // namespace

DisassemblerWindow::DisassemblerWindow(app::Workbench& workbench, const DialogsFactory& makeDialogs)
    : SecondaryWindow(app::Window::Disassembler, workbench),
      dialogs_(makeDialogs(*this)),
      choosePrinter_(PrinterDialogOf(*this)),
      menuBar_(new QMenuBar),
      viewer_(NewViewer()),
      progressFrame_(new ProgressFrame(tr("Disassembling in progress..."), *this)) {
    setObjectName("DisassemblerWindow");
    setWindowTitle(tr("PIC Disassembler"));
    MakeMenus(*menuBar_);
    AddGoToAddress(*dialogs_);
    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(menuBar_);
    layout->addWidget(viewer_);
    beforeListing_.setSingleShot(true);
    connect(&beforeListing_, &QTimer::timeout, this, &DisassemblerWindow::ShowListing);
    afterListing_.setSingleShot(true);
    connect(&afterListing_, &QTimer::timeout, this, [this] { SetBusy(false); });
    const QMargins margins = layout->contentsMargins();
    const int frames = 2 * viewer_->frameWidth();
    const int textMargin = static_cast<int>(viewer_->document()->documentMargin());
    const QSize around(
        margins.left() + margins.right() + frames + 2 * textMargin +
            viewer_->verticalScrollBar()->sizeHint().width(),
        // The line that follows would show in a margin below the text.
        margins.top() + margins.bottom() + frames + textMargin + menuBar_->sizeHint().height());
    resize(DataTextSize(kInitialColumns, kInitialLines) + around);
}

DisassemblerWindow::~DisassemblerWindow() = default;

void DisassemblerWindow::MakeMenus(QMenuBar& menuBar) {
    QMenu* file = menuBar.addMenu(tr("&File"));
    file->setObjectName("menu1");
    AddCommand(*file, {"menusave", tr("&Save Listing"), QKeySequence::Save}, *this,
               [this] { Save(); });
    AddCommand(*file, {"menuprint", tr("&Print"), QKeySequence::Print}, *this, [this] { Print(); });
    QMenu* options = menuBar.addMenu(tr("&Options"));
    options->setObjectName("menu2");
    withoutOpcodes_ = AddCommand(*options, {"menunoopcodes", tr("Listing Without Opcodes")}, *this,
                                 [this] { ToggleOpcodes(); });
    withoutOpcodes_->setCheckable(true);
}

void DisassemblerWindow::SetPrinterChooser(PrinterChooser choosePrinter) {
    choosePrinter_ = std::move(choosePrinter);
}

void DisassemblerWindow::RunDisassembly() {
    withoutOpcodes_->setChecked(
        common::ReadSwitchSetting(Workbench().Settings().Store(), app::kListingWithoutOpcodes));
    viewer_->clear();
    progressFrame_->ShowProgress("", 0);
    SetBusy(true);
    beforeListing_.start(kFrameSeen);
}

void DisassemblerWindow::ShowListing() {
    const auto format = withoutOpcodes_->isChecked() ? disasm::ListingFormat::WithoutOpcodes
                                                     : disasm::ListingFormat::WithOpcodes;
    std::string_view status;
    int lastLine = 0;
    const std::string listing = disasm::DisassembleProgram(
        Workbench().LoadedProgram(), format, [&](std::string_view newStatus, int line) {
            status = newStatus;
            lastLine = line;
        });
    progressFrame_->ShowProgress(status, lastLine);
    viewer_->setPlainText(QtString(common::WithLf(listing)));
    afterListing_.start(kFrameSeen);
}

void DisassemblerWindow::SetBusy(bool busy) {
    for (QAction* menu : menuBar_->actions()) {
        menu->setEnabled(!busy);
    }
    progressFrame_->setVisible(busy);
}

bool DisassemblerWindow::GoTo(int address) {
    const QString wanted = QString::fromStdString(common::Hex4(address));
    for (QTextBlock line = viewer_->document()->begin(); line.isValid(); line = line.next()) {
        if (line.text().startsWith(wanted)) {
            QTextCursor cursor(line);
            cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            viewer_->setTextCursor(cursor);
            return true;
        }
    }
    return false;
}

void DisassemblerWindow::ToggleOpcodes() {
    common::WriteSwitchSetting(Workbench().Settings().Store(), app::kListingWithoutOpcodes,
                               withoutOpcodes_->isChecked());
    RunDisassembly();
}

void DisassemblerWindow::Save() {
    const std::optional<std::string> path =
        app::AskSavePath(*dialogs_, Workbench().Settings(), app::kDisassemblerListing);
    if (path) {
        app::WriteFileOrInform(*dialogs_, *path, viewer_->toPlainText().toStdString());
    }
}

void DisassemblerWindow::Print() {
    if (viewer_->document()->isEmpty()) {
        dialogs_->Inform("The viewer is empty.");
        return;
    }
    const QString program = QFileInfo(QtString(Workbench().ProgramPath())).fileName();
    PrintText(choosePrinter_, program, viewer_->toPlainText(), viewer_->font());
}

}  // namespace corvane::ui
