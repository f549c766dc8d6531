// What the windows in which a person writes a source have in common: editor, File and Edit menu,
// the file behind the text, and the state while a translation runs.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/source_file.h"
#include "common/progress.h"
#include "ui/editor/debugged_source.h"
#include "ui/editor/find_bar.h"
#include "ui/editor/list_menu.h"
#include "ui/editor/source_editor.h"
#include "ui/editor/status_line.h"
#include "ui/editor/text_encoding.h"
#include "ui/editor/text_keeper.h"
#include "ui/printing/printing.h"
#include "ui/window/dialogs_factory.h"
#include "ui/window/secondary_window.h"

class QMenu;
class QMenuBar;
class QVBoxLayout;

namespace corvane::ui {

class SourceWindow : public SecondaryWindow, private app::EditedText {
    Q_OBJECT
  public:
    // Texts that have not been saved are kept in the recovery folder.
    SourceWindow(app::Window number, app::Workbench& workbench, const app::FileKind& kind,
                 SourceLanguage language, const DialogsFactory& makeDialogs,
                 const std::string& recoveryFolder);
    ~SourceWindow() override;

    // The toolkit's printer dialog, unless another chooser is set.
    void SetPrinterChooser(PrinterChooser choosePrinter);

    void OpenFile(const QString& path);

    void ProgramChanged() override { debugged_.FindProgram(); }

  protected:
    SourceEditor& Editor() const { return *editor_; }
    QWidget& EditorPane() const { return *editorPane_; }  // the editor with its find bar
    app::SourceFile& File() { return file_; }
    const app::SourceFile& File() const { return file_; }
    app::Dialogs& Dialogs() const { return *dialogs_; }
    // Stands in the File menu behind what prints the source.
    void AddPrintCommand(const char* name, const QString& caption,
                         const std::function<void()>& command);
    QMenu& AddMenu(const char* name, const QString& caption);
    void AddDebugCommands(QMenu& menu);
    // False after a message: nothing could be loaded now.
    bool MayLoad() { return !Workbench().RefuseLoading(*dialogs_); }
    // Loads the HEX file beside the source and starts it; the summary is of its translation.
    void LoadAndStart(const std::string& summary);
    QVBoxLayout& Layout() const { return *layout_; }

    // "Please save the file first.", "The editor is empty."; false after a message.
    bool IsReady() { return file_.IsReady(editor_->IsEmpty()); }
    // The same for a translation, which has these files beside the source as its output.
    bool IsReadyToTranslate(std::initializer_list<std::string_view> outputExtensions);
    // The text as it has been saved; nothing when it was not, after a message.
    std::optional<std::string> Save();
    void Print(const QString& title, const QString& text, const QFont& font);

    // Runs a translation with the menus disabled and the text read-only. The window stays alive:
    // pending events are let in now and then, and a close waits until the translation is done.
    // What it came to is shown with ShowResult.
    void RunTranslation(const std::function<void(const common::ProgressCallback&)>& translate);
    // The person has asked meanwhile to close the window.
    bool IsClosing() const { return isClosing_; }

    void ShowResult(const std::string& text);
    // A command that the status line offers behind the result, until the next one; empty: none.
    void OfferCommand(const QString& caption, const std::function<void()>& run);
    // For a translation that waits for another program. True when it need not wait any longer.
    bool LetEventsIn(const common::ProgressCallback& progress) const;
    TextEncoding Encoding() const { return encoding_; }

    // The text was replaced by another file's, or emptied, or is to be translated anew.
    virtual void TextReplaced();
    // A translation begins or has ended, or has come so far.
    virtual void SetBusy(bool busy);
    virtual void ShowProgress(std::string_view /*status*/, int /*line*/) {}

    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void Draw() override { debugged_.Draw(); }
    void MakeFileMenu();
    void MakeStatusLine();
    void New();
    void OpenFromDialog();
    void SaveAs();
    void PrintSource();
    void Recover(const std::string& id);
    void ShowFile(const std::optional<std::string>& bytes);
    void ShowText(const std::string& bytes, void (SourceEditor::*load)(const QString&));
    void ShowCaption();
    void ShowState();
    void ShowCaret();
    void ListRecentFiles();
    void ListKeptTexts();
    void SetSaved(bool isSaved);
    bool MayEdit();
    // Final, since the state is shown while the window is made.
    bool IsModified() const final { return editor_->document()->isModified(); }
    std::string TextToSave() override;
    bool LoadAnew(const std::string& bytes) override;

    std::unique_ptr<app::Dialogs> dialogs_;
    app::SourceFile file_;
    TextEncoding encoding_ = TextEncoding::Utf8;
    PrinterChooser choosePrinter_;
    QVBoxLayout* layout_;
    QMenuBar* menuBar_;
    QMenu* fileMenu_;
    QAction* listsOfFileMenu_ = nullptr;
    ListMenu* recentMenu_;
    ListMenu* recoverMenu_;
    QWidget* editorPane_;
    SourceEditor* editor_;
    FindBar* findBar_;
    StatusLine* statusLine_;
    DebuggedSource debugged_;
    TextKeeper keeper_;
    QString keepingFailure_;  // why the text could not be kept
    bool isBusy_ = false;
    bool isClosing_ = false;
};

}  // namespace corvane::ui
