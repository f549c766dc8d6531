// A plain text editor in the fixed-pitch font, with line numbers and the current line marked.
#pragma once

#include <QPlainTextEdit>

namespace corvane::ui {

inline constexpr int kTabColumns = 8;

class NumberedEditor : public QPlainTextEdit {
    Q_OBJECT
  public:
    explicit NumberedEditor(QWidget* parent = nullptr);

    // Lines are numbered from 1.
    int CaretLine() const;
    // Takes the caret to the start of the line, in the middle of the pane.
    void GoToLine(int number);

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    friend class LineNumberArea;

    int LineNumberAreaWidth() const;
    void PlaceLineNumberArea();
    void PaintLineNumbers(const QRect& area);
    void ScrollLineNumbers(const QRect& area, int pixels);
    void MarkCurrentLine();

    QWidget* lineNumberArea_;
    int nestedResizes_ = 0;
};

}  // namespace corvane::ui
