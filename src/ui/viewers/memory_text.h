// A memory as lines of fixed-pitch text. It cannot be edited and never keeps the keyboard focus.
#pragma once

#include <QLabel>
#include <QPlainTextEdit>
#include <initializer_list>
#include <string>
#include <vector>

#include "ui/common/step_watch.h"

namespace corvane::ui {

class MemoryText : public QPlainTextEdit {
    Q_OBJECT
  public:
    // As large as this many lines of this many characters.
    MemoryText(int columns, int lines);

    // Lines are separated by CR LF. Touches the lines that differ. Fields that differ after one
    // step are set off until the next.
    void ShowText(const std::string& text, SinceLastDraw since = SinceLastDraw::Other);

    QSize sizeHint() const override { return size_; }
    QSize minimumSizeHint() const override { return size_; }

  private:
    QSize size_;
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
