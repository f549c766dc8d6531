// A memory as lines of fixed-pitch text, from which can be copied. Nothing can be typed into it. A
// click leaves the keyboard focus elsewhere; Tab leads to it, for those who select by keyboard.
#pragma once

#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <initializer_list>
#include <string>
#include <vector>

#include "ui/window/step_watch.h"

namespace corvane::ui {

class MemoryText : public QPlainTextEdit {
    Q_OBJECT
  public:
    // As large as this many lines of this many characters.
    MemoryText(int columns, int lines);

    // Lines are separated by CR LF. Touches the lines that differ. Fields that differ after one
    // step are set off until the next.
    void ShowText(const std::string& text, SinceLastDraw since = SinceLastDraw::Other);

    // Counted from 0.
    void SelectLine(int line);

    // A click gives the focus to this button. Ctrl+C in the window copies what is selected here.
    void Serve(QWidget& window, QWidget& button);
    // The context menu has an entry that chooses a field too.
    void OfferChange();
    QMenu& ContextMenu() { return *contextMenu_; }

    QSize sizeHint() const override { return size_; }
    QSize minimumSizeHint() const override { return size_; }

  signals:
    // A double click, Enter or F2 on a field that is to be changed.
    void FieldChosen(int line, int column);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void ShowLines(const QStringList& lines, SinceLastDraw since);
    void Choose(const QTextCursor& place);

    QSize size_;
    QWidget* focusTaker_ = nullptr;
    QMenu* contextMenu_;  // stays with the text, which may go while it is open
};

// The heading above a MemoryText: its words, which stand apart by two blanks or more, are drawn
// over the columns to which they belong.
class MemoryHeading : public QLabel {
    Q_OBJECT
  public:
    MemoryHeading(const QString& text, std::initializer_list<int> columns);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::vector<int> columns_;
};

}  // namespace corvane::ui
