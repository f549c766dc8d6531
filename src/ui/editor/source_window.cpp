#include "ui/editor/source_window.h"

#include <QCloseEvent>
#include <QDateTime>
#include <QFileInfo>
#include <QMenuBar>
#include <QTextBlock>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "common/text.h"
#include "ui/editor/edit_menu.h"
#include "ui/window/command.h"
#include "ui/window/event_pump.h"

namespace corvane::ui {

SourceWindow::SourceWindow(app::Window number, app::Workbench& workbench, const app::FileKind& kind,
                           SourceLanguage language, const DialogsFactory& makeDialogs,
                           const std::string& recoveryFolder)
    : SecondaryWindow(number, workbench),
      dialogs_(makeDialogs(*this)),
      file_(kind, workbench.Settings(), *dialogs_),
      choosePrinter_(PrinterDialogOf(*this)),
      layout_(new QVBoxLayout(this)),
      menuBar_(new QMenuBar),
      fileMenu_(&AddMenu("menu1", tr("&File"))),
      recentMenu_(
          new ListMenu("menurecent", tr("Open &Recent"), *fileMenu_,
                       [this](const std::string& path) { ShowFile(file_.OpenPath(path)); })),
      recoverMenu_(new ListMenu("menurecover", tr("Reco&ver Text"), *fileMenu_,
                                [this](const std::string& id) { Recover(id); })),
      editorPane_(new QWidget),
      editor_(new SourceEditor(std::move(language))),
      findBar_(new FindBar(*editor_)),
      statusLine_(new StatusLine),
      debugged_(*editor_, workbench, project::KindOf(kind.extension),
                [this] { return EncodedText(editor_->Text(), encoding_); }),
      keeper_(*editor_->document(), app::KeptTexts(recoveryFolder, kind.extension),
              [this] { return EncodedText(editor_->Text(), encoding_); }) {
    editor_->setObjectName("RichTextBox1");
    auto* pane = new QVBoxLayout(editorPane_);
    pane->setContentsMargins(0, 0, 0, 0);
    pane->addWidget(editor_);
    pane->addWidget(findBar_);
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(0);
    layout_->setMenuBar(menuBar_);
    MakeFileMenu();
    menuBar_->addMenu(MakeEditMenu(*editor_, *findBar_, *dialogs_, menuBar_));
    editor_->SetToolTips([this](const QTextCursor& place) { return debugged_.ValueAt(place); });
    connect(editor_, &SourceEditor::FileDropped, this, &SourceWindow::OpenFile);
    MakeStatusLine();
    ShowCaption();
}

SourceWindow::~SourceWindow() = default;

QMenu& SourceWindow::AddMenu(const char* name, const QString& caption) {
    QMenu* menu = menuBar_->addMenu(caption);
    menu->setObjectName(name);
    return *menu;
}

void SourceWindow::MakeFileMenu() {
    AddCommand(*fileMenu_, {"menunew", tr("&New"), QKeySequence::New}, *this, [this] { New(); });
    AddCommand(*fileMenu_, {"menuopen", tr("&Open"), QKeySequence::Open}, *this,
               [this] { OpenFromDialog(); });
    AddCommand(*fileMenu_, {"menusave", tr("&Save"), QKeySequence::Save}, *this,
               [this] { Save(); });
    AddCommand(*fileMenu_,
               {"menusaveas", tr("Save &As"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)},
               *this, [this] { SaveAs(); });
    AddCommand(*fileMenu_, {"menuprint", tr("&Print"), QKeySequence::Print}, *this,
               [this] { PrintSource(); });
    listsOfFileMenu_ = fileMenu_->addSeparator();
    fileMenu_->addMenu(recentMenu_);
    fileMenu_->addMenu(recoverMenu_);
}

void SourceWindow::SetPrinterChooser(PrinterChooser choosePrinter) {
    choosePrinter_ = std::move(choosePrinter);
}

void SourceWindow::AddPrintCommand(const char* name, const QString& caption,
                                   const std::function<void()>& command) {
    fileMenu_->insertAction(listsOfFileMenu_,
                            AddCommand(*fileMenu_, {name, caption}, *this, command));
}

void SourceWindow::AddDebugCommands(QMenu& menu) {
    menu.addSeparator();
    AddCommand(menu, {"menutogglebreakpoint", tr("Toggle &Breakpoint"), QKeySequence(Qt::Key_F9)},
               *this, [this] { debugged_.ToggleBreakpoint(editor_->CaretLine()); });
    common::SettingsStore& store = Workbench().Settings().Store();
    const bool showsCycles = common::ReadSwitchSetting(store, app::kShowCycles);
    AddSwitch(menu, {"menushowcycles", tr("Show C&ycles")}, showsCycles, *this,
              [this, &store](bool on) {
                  common::WriteSwitchSetting(store, app::kShowCycles, on);
                  debugged_.ShowCycles(on);
              });
    debugged_.ShowCycles(showsCycles);
}

void SourceWindow::LoadAndStart(const std::string& summary) {
    app::Workbench& workbench = Workbench();
    if (workbench.LoadAndStart(*dialogs_, file_.PathWithExtension(".hex"))) {
        const int words = workbench.LoadedWords();
        ShowResult(summary + " " + std::to_string(words) +
                   (words == 1 ? " word loaded." : " words loaded."));
    }
}

void SourceWindow::MakeStatusLine() {
    layout_->addWidget(statusLine_);
    connect(editor_, &QPlainTextEdit::cursorPositionChanged, this, &SourceWindow::ShowCaret);
    connect(editor_->document(), &QTextDocument::modificationChanged, this,
            &SourceWindow::ShowState);
    connect(&debugged_, &DebuggedSource::Changed, this, [this](const QString& status) {
        statusLine_->ShowProgram(status);
        ShowCaret();
    });
    connect(&keeper_, &TextKeeper::Kept, this, [this](const QString& failure) {
        keepingFailure_ = failure;
        ShowState();
    });
}

void SourceWindow::ShowCaption() {
    setWindowTitle(QString::fromStdString(file_.Caption()));
    statusLine_->setToolTip(QString::fromStdString(file_.Path()));
    statusLine_->ShowEncoding(NameOf(encoding_));
    keeper_.SetPath(file_.Path());
    ShowState();
    ListRecentFiles();
    ListKeptTexts();
}

void SourceWindow::ShowState() {
    if (!IsEditable(encoding_)) {
        statusLine_->ShowState(tr("read-only, not a text file"));
    } else if (IsModified() && !keepingFailure_.isEmpty()) {
        statusLine_->ShowState(tr("modified, cannot be kept: %1").arg(keepingFailure_));
    } else {
        statusLine_->ShowState(IsModified() ? tr("modified") : QString());
    }
}

void SourceWindow::ShowCaret() {
    const QTextCursor caret = editor_->textCursor();
    const QString before = caret.block().text().left(caret.positionInBlock());
    const int line = editor_->CaretLine();
    statusLine_->ShowCaret(line, static_cast<int>(before.toUcs4().size()) + 1,
                           debugged_.NoteOn(line));
    statusLine_->ShowValue(debugged_.ValueAt(caret));
}

void SourceWindow::ShowResult(const std::string& text) {
    statusLine_->ShowResult(DecodedText(text, EncodingOf(text)));
}

void SourceWindow::ListRecentFiles() {
    std::vector<ListEntry> entries;
    for (const std::string& path : file_.Recent().Paths()) {
        const QString shown = QString::fromStdString(path);
        entries.push_back({path, shown, shown, QFileInfo(shown).isFile()});
    }
    recentMenu_->Show(std::move(entries));
}

void SourceWindow::ListKeptTexts() {
    std::vector<ListEntry> entries;
    for (const app::KeptText& text : keeper_.Latest()) {
        const QString path = QString::fromStdString(text.path);
        const QString name =
            path.isEmpty() ? QStringLiteral("UNTITLED") : QFileInfo(path).fileName();
        const auto time = std::chrono::time_point_cast<std::chrono::milliseconds>(text.time);
        const QDateTime local = QDateTime::fromMSecsSinceEpoch(time.time_since_epoch().count());
        entries.push_back({text.id, name + local.toString(", yyyy-MM-dd HH:mm:ss"), path});
    }
    recoverMenu_->Show(std::move(entries));
}

void SourceWindow::New() {
    keeper_.LetGo();
    file_.New();
    encoding_ = TextEncoding::Utf8;
    debugged_.LeaveFile();
    editor_->Clear();
    editor_->setReadOnly(false);
    debugged_.EnterFile(file_.Path());
    TextReplaced();
    ShowCaption();
}

void SourceWindow::OpenFromDialog() {
    ShowFile(file_.Open());
}

void SourceWindow::OpenFile(const QString& path) {
    ShowFile(file_.OpenPath(path.toStdString()));
}

void SourceWindow::ShowFile(const std::optional<std::string>& bytes) {
    if (bytes) {
        keeper_.LetGo();
        ShowText(*bytes, &SourceEditor::Load);
    }
}

void SourceWindow::ShowText(const std::string& bytes, void (SourceEditor::*load)(const QString&)) {
    encoding_ = EncodingOf(bytes);
    debugged_.LeaveFile();
    (editor_->*load)(DecodedText(common::WithLf(bytes), encoding_));
    editor_->setReadOnly(!IsEditable(encoding_));
    debugged_.EnterFile(file_.Path());
    TextReplaced();
    ShowCaption();
}

void SourceWindow::Recover(const std::string& id) {
    const std::vector<app::KeptText> texts = keeper_.Latest();
    const auto kept = std::ranges::find(texts, id, &app::KeptText::id);
    const std::string path = keeper_.Texts().PathOf(id);
    common::Result<std::string> bytes = keeper_.Texts().Read(id);
    if (kept == texts.end() || !bytes) {
        dialogs_->Inform("File '" + path + "' could not be opened.");
        ListKeptTexts();
        return;
    }
    keeper_.LetGo();
    file_.Recover(kept->path);
    ShowText(*bytes, &SourceEditor::Load);
    editor_->document()->setModified(true);
    keeper_.TakeOver(id);
    ListKeptTexts();
}

bool SourceWindow::MayEdit() {
    if (IsEditable(encoding_)) {
        return true;
    }
    dialogs_->Inform("File '" + file_.Path() +
                     "' is not a text file and has been opened read-only.");
    return false;
}

bool SourceWindow::IsReadyToTranslate(std::initializer_list<std::string_view> outputExtensions) {
    return IsReady() && MayEdit() && file_.MayWriteBeside(outputExtensions);
}

std::string SourceWindow::TextToSave() {
    editor_->FormWholeText();
    encoding_ = EncodingFor(editor_->Text(), encoding_);
    return EncodedText(editor_->Text(), encoding_);
}

bool SourceWindow::LoadAnew(const std::string& bytes) {
    ShowText(bytes, &SourceEditor::LoadAnew);
    return MayEdit();
}

std::optional<std::string> SourceWindow::Save() {
    if (!MayEdit()) {
        return std::nullopt;
    }
    const bool isSaved = file_.Save(*this);
    SetSaved(isSaved);
    return isSaved ? std::optional(EncodedText(editor_->Text(), encoding_)) : std::nullopt;
}

void SourceWindow::SaveAs() {
    if (MayEdit()) {
        SetSaved(file_.SaveAs(*this));
    }
}

void SourceWindow::SetSaved(bool isSaved) {
    if (isSaved) {
        editor_->document()->setModified(false);
        keeper_.Forget();
        debugged_.RenameFile(file_.Path());
    }
    ShowCaption();
}

void SourceWindow::PrintSource() {
    if (IsReady()) {
        file_.EnterFolder();
        Print(QString::fromStdString(file_.Name()), editor_->toPlainText(), editor_->font());
    }
}

void SourceWindow::Print(const QString& title, const QString& text, const QFont& font) {
    PrintText(choosePrinter_, title, text, font);
}

void SourceWindow::TextReplaced() {
    ShowResult("");
}

void SourceWindow::RunTranslation(
    const std::function<void(const common::ProgressCallback&)>& translate) {
    constexpr int kLinesBetweenClockReads = 64;
    EventPump events;
    SetBusy(true);
    translate([&](std::string_view status, int line) {
        if (line % kLinesBetweenClockReads == 0 && events.IsDue()) {
            ShowProgress(status, line);
            events.LetEventsIn();
        }
    });
    SetBusy(false);
}

bool SourceWindow::LetEventsIn(const common::ProgressCallback& progress) const {
    progress("Waiting for gpasm.", 0);
    return isClosing_;
}

void SourceWindow::OfferCommand(const QString& caption, const std::function<void()>& run) {
    statusLine_->OfferCommand(caption, run);
}

void SourceWindow::SetBusy(bool busy) {
    isBusy_ = busy;
    for (QAction* menu : menuBar_->actions()) {
        menu->setEnabled(!busy);
    }
    editor_->setReadOnly(busy || !IsEditable(encoding_));
    if (!busy && isClosing_) {
        close();
    }
}

bool SourceWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        ListRecentFiles();  // files come and go while another program is used
    }
    return SecondaryWindow::event(event);
}

void SourceWindow::closeEvent(QCloseEvent* event) {
    if (isBusy_) {
        isClosing_ = true;
        event->ignore();
        return;
    }
    keeper_.LetGo();
    SecondaryWindow::closeEvent(event);
}

}  // namespace corvane::ui
