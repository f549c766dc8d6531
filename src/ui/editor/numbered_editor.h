// A plain text editor in the fixed-pitch font, with line numbers and the current line marked.
#pragma once

#include <QPlainTextEdit>
#include <cstdint>
#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace corvane::ui {

inline constexpr int kTabColumns = 8;

// What a debugger shows beside the lines, which are numbered from 1.
struct LineMarks {
    std::vector<int> breakpoints{};
    bool areValid = true;  // else the breakpoints are not those of the loaded program
    int next = 0;          // the line that is executed next; 0: none
    bool showsCycles = false;
    std::map<int, std::int64_t> cycles{};  // that lines have taken
    bool operator==(const LineMarks&) const = default;
};

class NumberedEditor : public QPlainTextEdit {
    Q_OBJECT
  public:
    explicit NumberedEditor(QWidget* parent = nullptr);

    // Lines are numbered from 1.
    int CaretLine() const;
    // Takes the caret to the start of the line, in the middle of the pane.
    void GoToLine(int number);
    // The same, but the text moves only when the line is not in view.
    void RevealLine(int number);

    // Gives the numbers a margin for marks, in which a click is told.
    void AddMarkMargin(const QString& toolTip);
    void ShowMarks(const LineMarks& marks);
    const LineMarks& Marks() const { return marks_; }

    // What the pointer tells of the place in the text that it rests on; empty: nothing.
    void SetToolTips(std::function<QString(const QTextCursor& place)> toolTipAt) {
        toolTipAt_ = std::move(toolTipAt);
    }

  signals:
    void MarginClicked(int line);

  protected:
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    friend class LineNumberArea;

    int LineNumberAreaWidth() const;
    void PlaceLineNumberArea();
    int MarkMarginWidth() const;
    int CyclesWidth() const;
    void PaintLineNumbers(const QRect& area);
    void PaintMarks(QPainter& painter, int line, const QRectF& place) const;
    int LineAt(int y) const;
    void ScrollLineNumbers(const QRect& area, int pixels);
    void MarkCurrentLine();

    QWidget* lineNumberArea_;
    bool hasMarkMargin_ = false;
    LineMarks marks_;
    std::function<QString(const QTextCursor& place)> toolTipAt_;
    int nestedResizes_ = 0;
};

}  // namespace corvane::ui
