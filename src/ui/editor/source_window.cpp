#include "ui/editor/source_window.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QVBoxLayout>
#include <utility>

#include "common/text.h"
#include "ui/common/event_pump.h"
#include "ui/editor/edit_menu.h"

namespace corvane::ui {

SourceWindow::SourceWindow(app::Window number, app::Workbench& workbench, const app::FileKind& kind,
                           SourceLanguage language, const DialogsFactory& makeDialogs)
    : SecondaryWindow(number, workbench),
      dialogs_(makeDialogs(*this)),
      file_(kind, workbench.Settings(), *dialogs_),
      choosePrinter_(PrinterDialogOf(*this)),
      layout_(new QVBoxLayout(this)),
      menuBar_(new QMenuBar),
      editorPane_(new QWidget),
      editor_(new SourceEditor(std::move(language))),
      findBar_(new FindBar(*editor_)) {
    editor_->setObjectName("RichTextBox1");
    auto* pane = new QVBoxLayout(editorPane_);
    pane->setContentsMargins(0, 0, 0, 0);
    pane->addWidget(editor_);
    pane->addWidget(findBar_);
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setMenuBar(menuBar_);
    MakeFileMenu();
    menuBar_->addMenu(MakeEditMenu(*editor_, *findBar_, *dialogs_, menuBar_));
    connect(editor_, &SourceEditor::FileDropped, this, &SourceWindow::OpenFile);
    ShowCaption();
}

SourceWindow::~SourceWindow() = default;

QMenu& SourceWindow::AddMenu(const char* name, const QString& caption) {
    QMenu* menu = menuBar_->addMenu(caption);
    menu->setObjectName(name);
    return *menu;
}

QAction* SourceWindow::AddCommand(QMenu& menu, const char* name, const QString& caption,
                                  const std::function<void()>& command,
                                  const QKeySequence& shortcut) {
    QAction* action = menu.addAction(caption);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    // Queued, because a command may wait for an answer, and whoever chose it must not wait with it.
    connect(action, &QAction::triggered, this, command, Qt::QueuedConnection);
    return action;
}

void SourceWindow::MakeFileMenu() {
    fileMenu_ = &AddMenu("menu1", tr("&File"));
    AddCommand(
        *fileMenu_, "menunew", tr("&New"), [this] { New(); }, QKeySequence::New);
    AddCommand(
        *fileMenu_, "menuopen", tr("&Open"), [this] { OpenFromDialog(); }, QKeySequence::Open);
    AddCommand(
        *fileMenu_, "menusave", tr("&Save"), [this] { Save(); }, QKeySequence::Save);
    AddCommand(
        *fileMenu_, "menusaveas", tr("Save &As"), [this] { SaveAs(); },
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    const auto print = [this] {
        if (IsReady()) {
            file_.EnterFolder();
            Print(QString::fromStdString(file_.Name()), editor_->toPlainText(), editor_->font());
        }
    };
    AddCommand(*fileMenu_, "menuprint", tr("&Print"), print, QKeySequence::Print);
}

void SourceWindow::SetPrinterChooser(PrinterChooser choosePrinter) {
    choosePrinter_ = std::move(choosePrinter);
}

void SourceWindow::ShowCaption() {
    setWindowTitle(QString::fromStdString(file_.Caption()));
}

void SourceWindow::New() {
    file_.New();
    encoding_ = TextEncoding::Utf8;
    editor_->Clear();
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
    if (!bytes) {
        return;
    }
    encoding_ = EncodingOf(*bytes);
    editor_->Load(DecodedText(common::WithLf(*bytes), encoding_));
    TextReplaced();
    ShowCaption();
}

std::string SourceWindow::TextToSave() {
    editor_->FormWholeText();
    return EncodedText(editor_->Text(), encoding_);
}

bool SourceWindow::LoadAnew(const std::string& bytes) {
    encoding_ = EncodingOf(bytes);
    editor_->LoadAnew(DecodedText(common::WithLf(bytes), encoding_));
    TextReplaced();
    return true;
}

std::optional<std::string> SourceWindow::Save() {
    const bool isSaved = file_.Save(*this);
    SetSaved(isSaved);
    return isSaved ? std::optional(EncodedText(editor_->Text(), encoding_)) : std::nullopt;
}

void SourceWindow::SaveAs() {
    SetSaved(file_.SaveAs(*this));
}

void SourceWindow::SetSaved(bool isSaved) {
    if (isSaved) {
        editor_->document()->setModified(false);
    }
    ShowCaption();
}

void SourceWindow::Print(const QString& title, const QString& text, const QFont& font) {
    PrintText(choosePrinter_, title, text, font);
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

void SourceWindow::SetBusy(bool busy) {
    isBusy_ = busy;
    for (QAction* menu : menuBar_->actions()) {
        menu->setEnabled(!busy);
    }
    editor_->setReadOnly(busy);
    if (!busy && isClosing_) {
        close();
    }
}

void SourceWindow::closeEvent(QCloseEvent* event) {
    if (isBusy_) {
        isClosing_ = true;
        event->ignore();
        return;
    }
    SecondaryWindow::closeEvent(event);
}

}  // namespace corvane::ui
