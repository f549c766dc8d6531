// A text in an editor as the debugger's source: breakpoints in the margin, which move with their
// lines, and the line that is executed next. All of it holds while the text is the one that the
// loaded program was made from.
#pragma once

#include <QObject>
#include <QTextCursor>
#include <QTimer>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/edited_program.h"
#include "app/workbench.h"
#include "inspect/names.h"
#include "project/program_kind.h"
#include "ui/editor/numbered_editor.h"

namespace corvane::ui {

class DebuggedSource final : public QObject {
    Q_OBJECT
  public:
    DebuggedSource(NumberedEditor& editor, app::Workbench& workbench, project::ProgramKind kind,
                   std::function<std::string()> textToTranslate);
    ~DebuggedSource() override;

    // The text is about to be replaced; it has been, and is now this file's. Without a name it is
    // a new text.
    void LeaveFile();
    void EnterFile(const std::string& path);
    // The same text has another name.
    void RenameFile(const std::string& path);

    void ToggleBreakpoint(int line);
    // What is to be said of a line: "breakpoint, 12 cycles"; empty: nothing.
    QString NoteOn(int line) const;
    // Beside each line the instruction cycles of its last pass, while the simulation waits.
    void ShowCycles(bool on);

    // What is known of the name there: "count = 5 (0x05)"; empty without one.
    QString ValueAt(const QTextCursor& place) const;

    // Finds out at once whether the text is the loaded program's.
    void FindProgram();
    // Shows the present state.
    void Draw();

  signals:
    // What is to be said of the program and of the lines.
    void Changed(const QString& status);

  private:
    struct Breakpoint {
        int number;         // in the list of stops
        QTextCursor place;  // selects its line
    };

    bool IsUntitled() const;
    void FollowText();
    void FollowStops();
    QTextCursor PlaceOf(int line) const;
    std::vector<int> BreakpointLines() const;
    void FindCycles();
    QString Status(int next) const;

    NumberedEditor* editor_;
    app::Workbench* workbench_;
    project::ProgramKind kind_;
    std::function<std::string()> textToTranslate_;
    QTimer rest_;  // of the person who types
    std::string file_;
    std::vector<Breakpoint> breakpoints_;
    int lineCount_ = 1;
    bool isLeaving_ = false;
    std::optional<project::Program> program_;
    std::optional<inspect::Names> names_;  // of the program
    QString whyNotLoaded_;
    std::int64_t shownAt_ = -1;  // in clock cycles
    bool showsCycles_ = false;
    std::map<int, std::int64_t> cycles_;  // by line
    std::int64_t cyclesAt_ = -1;          // the position in the history that they were found at
};

}  // namespace corvane::ui
