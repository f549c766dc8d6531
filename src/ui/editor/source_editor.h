// The editor of a source text. Each line is brought into form and coloured when the caret leaves
// it; while it is being edited it stays as typed, in the normal colour. Undo takes an edit back
// together with the form that its line was given.
#pragma once

#include <QList>
#include <QTextCursor>
#include <functional>

#include "ui/editor/numbered_editor.h"
#include "ui/editor/source_language.h"
#include "ui/editor/syntax_highlighter.h"

namespace corvane::ui {

class SourceEditor final : public NumberedEditor {
    Q_OBJECT
  public:
    explicit SourceEditor(SourceLanguage language, QWidget* parent = nullptr);

    // Off: the text is shown in the normal colour and no line is changed.
    void SetFormEnabled(bool enabled);

    // Replaces the whole text, brought into form, and forgets what could be undone. The caret
    // stands at the start.
    void Load(const QString& text);
    // The same, but the caret and the view stay where they are as far as the text reaches.
    void LoadAnew(const QString& text);
    void Clear();
    // The text with LF line ends.
    QString Text() const;
    bool IsEmpty() const { return document()->isEmpty(); }
    // Brings every line into form and ends the last one, as part of the last edit.
    void FormWholeText();

    // In place of the selection, and of each text that is found; returns how many there were. The
    // whole of it is one step back.
    void ReplaceSelection(const QString& text);
    int ReplaceAll(const QString& text, const QString& replacement, QTextDocument::FindFlags flags);

    // The commands of the Edit menu; Copy is the toolkit's.
    void Undo();
    void Redo();
    void Cut();
    void Paste();

    // What a right click offers.
    void SetContextActions(const QList<QAction*>& actions) { contextActions_ = actions; }

  signals:
    void FileDropped(const QString& path);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void EditInOneStep(const std::function<void()>& edit, bool continuesTyping = false);
    void Edit(const std::function<void()>& edit);
    void Type(const QString& text);
    bool SelectsLines() const;
    void ShiftLines(bool right);
    void FormLinesLeftBy(const QTextCursor& lineBefore);
    void SetEditedLine(const QTextCursor& line);
    void LeaveEditedLine();
    void FollowCaret();
    void Select(int anchor, int position);
    void FormLines(QTextCursor& writer) const;
    void FormLine(const QTextBlock& line, QTextCursor& writer) const;
    QTextCursor BeginFollowUp();

    SourceLanguage language_;
    SyntaxHighlighter highlighter_;
    QList<QAction*> contextActions_;
    QTextCursor editedLine_;  // null when no line is being edited
    int typedUpTo_ = -1;      // where a character continues the typing before it
    bool formEnabled_ = true;
    bool hasChanged_ = false;  // since the edit began
    bool isDropping_ = false;
    bool isEditing_ = false;  // moves of the caret are part of an edit
};

}  // namespace corvane::ui
