#include "ui/asm/assembler_window.h"

#include <QAction>
#include <QMenu>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>

#include "asm/line_coloring.h"
#include "asm/listing.h"
#include "common/text.h"
#include "ui/common/command.h"
#include "ui/common/modal_dialog.h"
#include "ui/common/window_placement.h"
#include "ui/dialogs/configuration_bits_dialog.h"

namespace corvane::ui {

namespace {

constexpr QSize kLeastTwips(5505, 6045);
constexpr QSize kInitialTwips(10800, 10200);

// The divider's position is the editor's share of the height.
constexpr int kWholeHeight = 1000;
constexpr int kInitialPosition = 640;

constexpr std::string_view kWidth = "Width";
constexpr std::string_view kHeight = "Height";
constexpr std::string_view kPosition = "Position";

SourceLanguage AssemblerLanguage() {
    return {.form = [](std::string_view line) { return std::string(common::TrimRight(line)); },
            .color = assembler::ColorLine};
}

}  // namespace

AssemblerWindow::AssemblerWindow(app::Workbench& workbench, const DialogsFactory& makeDialogs,
                                 const std::string& recoveryFolder)
    : SourceWindow(app::Window::Assembler, workbench, app::kAssemblerSource, AssemblerLanguage(),
                   makeDialogs, recoveryFolder),
      divider_(new QSplitter(Qt::Vertical)),
      output_(new OutputPane),
      progressFrame_(new ProgressFrame(tr("Assembling in progress..."), *this)) {
    setMinimumSize(kLeastTwips / kTwipsPerPixel);
    Editor().setAccessibleName(tr("Assembler source"));
    output_->setObjectName("RichTextBox2");
    output_->setAccessibleName(tr("Assembler output"));
    divider_->setObjectName("VScroll1");
    divider_->setChildrenCollapsible(false);
    divider_->addWidget(&EditorPane());
    divider_->addWidget(output_);
    Layout().insertWidget(0, divider_, 1);
    MakeMenus();
    connect(output_, &OutputPane::LinkFollowed, this, &AssemblerWindow::ShowSourceLine);
}

void AssemblerWindow::MakeMenus() {
    AddPrintCommand("menuprint2", tr("Print Output"), [this] { PrintOutput(); });
    QMenu& tools = AddMenu("menu2", tr("&Tools"));
    AddCommand(tools, {"menuassemble", tr("&Assemble"), QKeySequence(Qt::Key_F7)}, *this,
               [this] { Assemble(); });
    tools.addSeparator();
    nextError_ = AddCommand(tools, {"menunexterror", tr("&Next Error"), QKeySequence(Qt::Key_F8)},
                            *this, [this] { output_->FollowNext(); });
    previousError_ = AddCommand(
        tools, {"menupreviouserror", tr("&Previous Error"), QKeySequence(Qt::SHIFT | Qt::Key_F8)},
        *this, [this] { output_->FollowPrevious(); });
    nextError_->setEnabled(false);
    previousError_->setEnabled(false);
    QMenu& options = AddMenu("menu3", tr("&Options"));
    AddCommand(options, {"menuconfig", tr("Configuration Bits")}, *this,
               [this] { EditConfigurationBits(); });
    const bool noColors =
        common::ReadSwitchSetting(Workbench().Settings().Store(), app::kTurnOffColors);
    AddSwitch(options, {"menunocolors", tr("Turn Off Colors")}, noColors, *this,
              [this](bool off) { TurnColorsOff(off); });
    Editor().SetFormEnabled(!noColors);
}

void AssemblerWindow::ReadFigures() {
    const app::AppSettings& settings = Workbench().Settings();
    const int height = settings.ReadWindowFigure(Number(), kHeight, kInitialTwips.height());
    const int width = settings.ReadWindowFigure(Number(), kWidth, kInitialTwips.width());
    const int position = settings.ReadWindowFigure(Number(), kPosition, kInitialPosition);
    resize(QSize(width, height) / kTwipsPerPixel);
    const int editorShare = std::clamp(position, 1, kWholeHeight - 1);
    divider_->setSizes({editorShare, kWholeHeight - editorShare});
}

void AssemblerWindow::StoreFigures() {
    const app::AppSettings& settings = Workbench().Settings();
    const QSize size = (isMaximized() || isFullScreen() ? normalGeometry().size() : this->size());
    settings.WriteWindowFigure(Number(), kHeight, size.height() * kTwipsPerPixel);
    settings.WriteWindowFigure(Number(), kWidth, size.width() * kTwipsPerPixel);
    const QList<int> panes = divider_->sizes();
    const int whole = std::max(panes[0] + panes[1], 1);
    settings.WriteWindowFigure(Number(), kPosition, panes[0] * kWholeHeight / whole);
}

void AssemblerWindow::TextReplaced() {
    SourceWindow::TextReplaced();
    output_->Clear();
    nextError_->setEnabled(false);
    previousError_->setEnabled(false);
}

void AssemblerWindow::SetBusy(bool busy) {
    if (busy) {
        ShowProgress("Loading source file.", 0);
    }
    progressFrame_->setVisible(busy);
    SourceWindow::SetBusy(busy);
}

void AssemblerWindow::ShowProgress(std::string_view status, int line) {
    progressFrame_->ShowProgress(status, line);
}

void AssemblerWindow::Assemble() {
    if (!IsReadyToTranslate({".lst", ".hex"})) {
        return;
    }
    TextReplaced();
    const std::optional<std::string> text = Save();
    if (!text) {
        return;
    }
    app::AssemblyRun run;
    RunTranslation([&](const common::ProgressCallback& progress) {
        run = app::AssembleSource(Workbench(), Dialogs(), File(), *text, progress);
    });
    if (IsClosing()) {
        return;
    }
    ShowOutput(run);
    app::ReportAssembly(Dialogs(), run);
}

void AssemblerWindow::ShowOutput(const app::AssemblyRun& run) {
    std::vector<OutputLink> links;
    for (const assembler::ListedError& error : assembler::ErrorsInListing(run.assembly)) {
        links.push_back({error.listingLine, error.sourceLine});
    }
    std::string text = run.assembly.listing;
    auto line = static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    for (const common::Diagnostic& warning : run.warnings) {
        text += common::TextWithLine(warning) + "\r\n";
        links.push_back({++line, warning.line});
    }
    nextError_->setEnabled(!links.empty());
    previousError_->setEnabled(!links.empty());
    output_->ShowOutput(DecodedText(text, Encoding()), std::move(links));
    ShowResult(app::Summary(run));
}

void AssemblerWindow::ShowSourceLine(int line) {
    Editor().GoToLine(line);
    Editor().setFocus();
}

void AssemblerWindow::PrintOutput() {
    if (File().IsReady(output_->IsEmpty())) {
        File().EnterFolder();
        Print(QString::fromStdString(app::WithExtension(File().Name(), ".lst")), output_->Text(),
              output_->font());
    }
}

void AssemblerWindow::EditConfigurationBits() {
    app::Workbench& workbench = Workbench();
    ConfigurationBitsDialog dialog(workbench.Model().family, workbench.ConfigurationWord(), this);
    if (RunModal(dialog, this) == QDialog::Accepted) {
        workbench.SetConfigurationWord(dialog.Word());
    }
}

void AssemblerWindow::TurnColorsOff(bool off) {
    common::WriteSwitchSetting(Workbench().Settings().Store(), app::kTurnOffColors, off);
    Editor().SetFormEnabled(!off);
    Editor().FormWholeText();
}

}  // namespace corvane::ui
