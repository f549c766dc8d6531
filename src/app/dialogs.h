// What a command needs from the person in front of it. The titles of message and input boxes are
// "Corvane" and not given here. A window has its own Dialogs, so that its boxes are modal to it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane::app {

// A file dialog. Filters are pairs of description and pattern, all separated by "|":
// "Intel HEX files (*.hex)|*.hex|All files (*.*)|*.*".
struct FileDialog {
    std::string_view title;
    std::string_view filters;
    std::string folder;         // where it starts, with trailing separator
    std::string fileName = {};  // what is offered; empty when nothing is
};

class Dialogs {
  public:
    virtual ~Dialogs() = default;

    // A message box with an OK button; lines are separated by CR LF.
    virtual void Inform(const std::string& text) = 0;
    // The same, with a text that is shown on request.
    virtual void InformWithDetails(const std::string& text, const std::string& details) = 0;
    // A message box with Yes and No.
    virtual bool Ask(const std::string& question) = 0;
    // An input box; nothing when it is cancelled.
    virtual std::optional<std::string> Input(const std::string& prompt,
                                             const std::string& defaultText) = 0;
    // The full path of the chosen file; nothing when cancelled. A save dialog does not ask before
    // an existing file is chosen: the command does.
    virtual std::optional<std::string> OpenFile(const FileDialog& dialog) = 0;
    virtual std::optional<std::string> SaveFile(const FileDialog& dialog) = 0;
    // The Select Microcontroller dialog; the chosen row of the model catalogue, nothing when
    // cancelled.
    virtual std::optional<int> ChooseModel(int currentModel) = 0;
};

}  // namespace corvane::app
