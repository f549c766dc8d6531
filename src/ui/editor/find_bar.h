// The lines under an editor in which a person types what to look for and what to put in its place.
#pragma once

#include <QTextCursor>
#include <QWidget>

#include "ui/editor/source_editor.h"

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace corvane::ui {

class FindBar final : public QWidget {
    Q_OBJECT
  public:
    explicit FindBar(SourceEditor& editor, QWidget* parent = nullptr);

    // Shows the bar, with the editor's selection as what to look for.
    void Open();
    // The same with the line for the replacement.
    void OpenReplace();
    // From the caret on; behind the end of the text it goes on at the other end.
    void FindNext();
    void FindPrevious();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void MakeFindLine(QGridLayout& grid);
    void MakeReplaceLine(QGridLayout& grid);
    void Show(bool withReplacement);
    void FindWhileTyping();
    void Find(bool backwards);
    bool IsFound(const QString& text) const;
    QTextDocument::FindFlags Flags() const;
    void Replace();
    void ReplaceAll();
    void Close();

    SourceEditor* editor_;
    QLineEdit* text_;
    QLineEdit* replacement_;
    QList<QWidget*> replaceLine_;  // shown and hidden together
    QCheckBox* matchCase_;
    QLabel* message_;
};

}  // namespace corvane::ui
