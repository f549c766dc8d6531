// The file commands of the windows that edit or show a text: dialogs, names, questions, messages.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "app/app_settings.h"
#include "app/dialogs.h"
#include "app/recent_files.h"

namespace corvane::app {

struct FileKind {
    std::string_view caption;  // what stands before the file name in the window's caption
    std::string_view openTitle;
    std::string_view saveTitle;
    std::string_view filters;
    std::string_view extension;
    std::string_view recentFiles{};  // what the settings call them, without the number
};

extern const FileKind kAssemblerSource;
extern const FileKind kBasicSource;
extern const FileKind kDisassemblerListing;
extern const FileKind kFirmwareTest;

// The text of an editor, as the commands on its file see it.
class EditedText {
  public:
    virtual ~EditedText() = default;

    // Since it was opened or saved.
    virtual bool IsModified() const = 0;
    // Brings it into form and returns it; called when it is certain that it will be written.
    virtual std::string TextToSave() = 0;
    // Takes the file's text again, which another program has changed. False when that cannot be
    // edited.
    virtual bool LoadAnew(const std::string& bytes) = 0;
};

// The text of a file; nothing after a message that it could not be opened.
std::optional<std::string> ReadFileOrInform(Dialogs& dialogs, const std::string& path);
// Replaces the file, with CR LF line ends. False after a message that it could not be written.
bool WriteFileOrInform(Dialogs& dialogs, const std::string& path, std::string_view text);

// "File '...' could not be written." and the reason.
std::string NotWrittenMessage(const std::string& path, const std::string& reason);

// Shows the save dialog with the name that is offered, if any, stores its folder as Last Path,
// gives the name the kind's extension and asks before an existing file is overwritten. The full
// path, or nothing when the person declined.
std::optional<std::string> AskSavePath(Dialogs& dialogs, AppSettings& settings,
                                       const FileKind& kind, const std::string& offeredName = {});

// The file that a source window edits: a full path, or none yet. Its commands make the file's
// folder Last Path, which all windows share, before they do anything else.
class SourceFile {
  public:
    SourceFile(const FileKind& kind, AppSettings& settings, Dialogs& dialogs)
        : kind_(&kind), settings_(&settings), dialogs_(&dialogs) {}

    bool IsUntitled() const { return path_.empty(); }
    std::string Caption() const;  // "Assembler - blink.asm", "Assembler - UNTITLED"
    std::string Name() const;     // without folder
    const std::string& Path() const { return path_; }
    RecentFiles Recent() const { return {settings_->Store(), kind_->recentFiles}; }
    // Path of a file beside it with the same base name: "/home/me/blink.hex".
    std::string PathWithExtension(std::string_view extension) const;

    void New() { path_.clear(); }
    // The text of the file that was chosen, which becomes the current one; else nothing changes.
    std::optional<std::string> Open();
    // The same for a file that was chosen otherwise (dropped, recent).
    std::optional<std::string> OpenPath(const std::string& path);
    // The text is one that was kept and belongs to this file, or to none yet. What is on disk is
    // overwritten only after a question.
    void Recover(const std::string& path);
    // False when nothing was written. What another program has written into the file meanwhile is
    // overwritten only after a question; a text without changes of its own is loaded anew first.
    bool Save(EditedText& text);
    bool SaveAs(EditedText& text);

    // The guards of translating and of printing: "Please save the file first.", "The editor is
    // empty.". False after a message.
    bool IsReady(bool textIsEmpty);
    // "The source file would be overwritten by the output.": false after this message, when a file
    // beside the source with one of these extensions is the source itself.
    bool MayWriteBeside(std::initializer_list<std::string_view> extensions);
    // The file's folder becomes Last Path.
    void EnterFolder();

  private:
    bool MayReplace(EditedText& text);
    bool Write(const std::string& path, EditedText& text);
    void BecomeFile(const std::string& path, std::string bytes);

    const FileKind* kind_;
    AppSettings* settings_;
    Dialogs* dialogs_;
    std::string path_;
    std::optional<std::string> bytes_;  // of the file when it was opened or saved last
};

}  // namespace corvane::app
