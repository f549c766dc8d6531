// The file commands of the windows that edit or show a text: dialogs, names, questions, messages.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "app/app_settings.h"
#include "app/dialogs.h"

namespace corvane::app {

struct FileKind {
    std::string_view caption;  // what stands before the file name in the window's caption
    std::string_view openTitle;
    std::string_view saveTitle;
    std::string_view filters;
    std::string_view extension;
};

extern const FileKind kAssemblerSource;
extern const FileKind kBasicSource;
extern const FileKind kDisassemblerListing;

// Gives the text that is to be saved, brought into form; called once, when it is certain that the
// text will be written.
using TextToSave = std::function<std::string()>;

// The text of a file; nothing after a message that it could not be opened.
std::optional<std::string> ReadFileOrInform(Dialogs& dialogs, const std::string& path);
// Replaces the file, with CR LF line ends. False after a message that it could not be written.
bool WriteFileOrInform(Dialogs& dialogs, const std::string& path, std::string_view text);

// Shows the save dialog, stores its folder as Last Path, gives the name the kind's extension and
// asks before an existing file is overwritten. The full path, or nothing when the person declined.
std::optional<std::string> AskSavePath(Dialogs& dialogs, AppSettings& settings,
                                       const FileKind& kind);

// The name before its first ".", with this extension behind it.
std::string WithExtension(std::string_view fileName, std::string_view extension);

// The file that a source window edits: a name, or none yet. Its folder is Last Path, which all
// windows share; when another window has led it elsewhere, a file of the same name there is
// overwritten only after the question.
class SourceFile {
  public:
    SourceFile(const FileKind& kind, AppSettings& settings, Dialogs& dialogs)
        : kind_(&kind), settings_(&settings), dialogs_(&dialogs) {}

    bool IsUntitled() const { return name_.empty(); }
    std::string Caption() const;  // "Assembler - blink.asm", "Assembler - UNTITLED"
    const std::string& Name() const { return name_; }  // without folder
    std::string Path() const { return settings_->LastPath() + name_; }
    // Path of a file beside it with the same base name: "/home/me/blink.hex".
    std::string PathWithExtension(std::string_view extension) const;

    void New() { name_.clear(); }
    // The text of the file that was chosen, which becomes the current one; else nothing changes.
    std::optional<std::string> Open();
    // The same for a file that was chosen otherwise (dropped, recent).
    std::optional<std::string> OpenPath(const std::string& path);
    // False when nothing was written.
    bool Save(const TextToSave& text);
    bool SaveAs(const TextToSave& text);

    // The guards of translating and of printing: "Please save the file first.", "The editor is
    // empty.". False after a message.
    bool IsReady(bool textIsEmpty);

  private:
    bool Write(const std::string& path, const TextToSave& text);
    void BecomeFile(const std::string& path);

    const FileKind* kind_;
    AppSettings* settings_;
    Dialogs* dialogs_;
    std::string name_;
    std::string folder_;  // where it was opened or saved last
};

}  // namespace corvane::app
