#include "ui/asm/assembler_window.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSignalBlocker>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>

#include "asm/line_coloring.h"
#include "common/text.h"
#include "project/program_kind.h"
#include "ui/dialogs/configuration_bits_dialog.h"
#include "ui/editor/text_view_window.h"
#include "ui/window/command.h"
#include "ui/window/modal_dialog.h"
#include "ui/window/window_placement.h"

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

// Without the page breaks of gpasm's listing, the last of which stands in the last line.
std::string ListingAsShown(std::string listing) {
    std::erase(listing, '\f');
    return listing;
}

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
    connect(output_, &OutputPane::LinkFollowed, this, &AssemblerWindow::FollowLink);
}

void AssemblerWindow::MakeMenus() {
    AddPrintCommand("menuprint2", tr("Print Output"), [this] { PrintOutput(); });
    MakeToolsMenu();
    MakeOptionsMenu();
}

void AssemblerWindow::MakeToolsMenu() {
    QMenu& tools = AddMenu("menu2", tr("&Tools"));
    AddCommand(tools, {"menuassemble", tr("&Assemble"), QKeySequence(Qt::Key_F7)}, *this,
               [this] { Assemble(); });
    AddCommand(
        tools,
        {"menuassembleandload", tr("Assemble and &Load"), QKeySequence(Qt::CTRL | Qt::Key_F7)},
        *this, [this] { AssembleAndLoad(); });
    tools.addSeparator();
    nextError_ = AddCommand(tools, {"menunexterror", tr("&Next Error"), QKeySequence(Qt::Key_F4)},
                            *this, [this] { output_->FollowNext(); });
    previousError_ = AddCommand(
        tools, {"menupreviouserror", tr("&Previous Error"), QKeySequence(Qt::SHIFT | Qt::Key_F4)},
        *this, [this] { output_->FollowPrevious(); });
    nextError_->setEnabled(false);
    previousError_->setEnabled(false);
    AddDebugCommands(tools);
}

void AssemblerWindow::MakeOptionsMenu() {
    common::SettingsStore& store = Workbench().Settings().Store();
    QMenu& options = AddMenu("menu3", tr("&Options"));
    AddCommand(options, {"menuconfig", tr("Configuration Bits")}, *this,
               [this] { EditConfigurationBits(); });
    const bool noColors = common::ReadSwitchSetting(store, app::kTurnOffColors);
    AddSwitch(options, {"menunocolors", tr("Turn Off Colors")}, noColors, *this,
              [this](bool off) { TurnColorsOff(off); });
    Editor().SetFormEnabled(!noColors);
    options.addSeparator();
    withGpasm_ = AddSwitch(options, {"menuwithgpasm", tr("Assemble With gpasm")},
                           common::ReadSwitchSetting(store, app::kAssembleWithGpasm), *this,
                           [this](bool on) { AssembleWithGpasm(on); });
    checksProgram_ = AddSwitch(
        options, {"menucheckprogram", tr("Check Program")}, app::ChecksProgram(store), *this,
        [&store](bool on) { common::WriteSwitchSetting(store, app::kCheckProgram, on); });
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

std::optional<app::AssemblyRun> AssemblerWindow::Assemble() {
    if (!(withGpasm_->isChecked() ? IsReadyToTranslate({".lst", ".hex", ".cod"})
                                  : IsReadyToTranslate({".lst", ".hex"}))) {
        return std::nullopt;
    }
    TextReplaced();
    const std::optional<std::string> text = Save();
    if (!text) {
        return std::nullopt;
    }
    app::AssemblyRun run;
    RunTranslation([&](const common::ProgressCallback& progress) {
        run = app::AssembleSource(Workbench(), Dialogs(), File(), *text, progress,
                                  [&] { return LetEventsIn(progress); });
    });
    if (IsClosing()) {
        return std::nullopt;
    }
    ShowOutput(run);
    app::ReportAssembly(Dialogs(), run);
    return run;
}

void AssemblerWindow::AssembleAndLoad() {
    if (!MayLoad()) {
        return;
    }
    const std::optional<app::AssemblyRun> run = Assemble();
    if (run && run->isWritten) {
        LoadAndStart(app::Summary(*run));
    }
}

void AssemblerWindow::ShowOutput(const app::AssemblyRun& run) {
    std::vector<OutputLink> links;
    for (const assembler::ListedError& error : run.listedErrors) {
        links.push_back({error.listingLine, error.sourceLine});
    }
    std::string text = ListingAsShown(run.listing);
    auto line = static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    for (const common::Diagnostic& message : run.messages) {
        text +=
            (message.file.empty() ? common::TextWithLine(message) : common::TextWithFile(message)) +
            "\r\n";
        ++line;
        if (message.line > 0) {
            links.push_back(LinkTo(message, line));
        }
    }
    nextError_->setEnabled(!links.empty());
    previousError_->setEnabled(!links.empty());
    output_->ShowOutput(DecodedText(text, Encoding()), std::move(links));
    ShowResult(app::Summary(run));
    if (run.isWrittenForGpasm) {
        OfferCommand(tr("Written for gpasm: assemble with it"), [this] { withGpasm_->trigger(); });
    }
}

// Included files are named as gpasm names them, from the source's folder on.
OutputLink AssemblerWindow::LinkTo(const common::Diagnostic& message, int outputLine) const {
    const bool isNote = message.severity == common::Severity::Note;
    QString file;
    if (!message.file.empty() && message.file != File().Name()) {
        const QDir folder = QFileInfo(QString::fromStdString(File().Path())).dir();
        file = folder.absoluteFilePath(QString::fromStdString(message.file));
    }
    return {outputLine, message.line, file, isNote};
}

void AssemblerWindow::FollowLink(const OutputLink& link) {
    if (link.file.isEmpty()) {
        Editor().GoToLine(link.sourceLine);
        Editor().setFocus();
        return;
    }
    if (const auto bytes = app::ReadFileOrInform(Dialogs(), link.file.toStdString())) {
        if (includedFile_ == nullptr) {
            includedFile_ = new TextViewWindow(this);
        }
        includedFile_->ShowFile(link.file, *bytes, link.sourceLine);
    }
}

void AssemblerWindow::PrintOutput() {
    if (File().IsReady(output_->IsEmpty())) {
        File().EnterFolder();
        Print(QString::fromStdString(project::NameBeside(File().Name(), ".lst")), output_->Text(),
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

void AssemblerWindow::AssembleWithGpasm(bool on) {
    common::SettingsStore& store = Workbench().Settings().Store();
    common::WriteSwitchSetting(store, app::kAssembleWithGpasm, on);
    const QSignalBlocker unchosen(checksProgram_);  // by a person
    checksProgram_->setChecked(app::ChecksProgram(store));
    OfferCommand({}, {});
}

void AssemblerWindow::TurnColorsOff(bool off) {
    common::WriteSwitchSetting(Workbench().Settings().Store(), app::kTurnOffColors, off);
    Editor().SetFormEnabled(!off);
    Editor().FormWholeText();
}

}  // namespace corvane::ui
