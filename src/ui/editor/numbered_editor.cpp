#include "ui/editor/numbered_editor.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>
#include <QToolTip>
#include <algorithm>
#include <cstdlib>

#include "ui/widgets/data_font.h"
#include "ui/widgets/tinted.h"

namespace corvane::ui {

namespace {

constexpr int kLeastDigits = 3;
constexpr int kLeastCycleDigits = 5;

// In an editor of a few lines, each scroll bar can come and go because of the other without end.
constexpr int kMostNestedResizes = 8;

// The same on a light and on a dark background.
constexpr QColor kBreakpoint(205, 50, 50);
constexpr QColor kNextLine(235, 170, 0);

}  // namespace

class LineNumberArea final : public QWidget {
  public:
    explicit LineNumberArea(NumberedEditor& editor) : QWidget(&editor), editor_(&editor) {}

    QSize sizeHint() const override { return {editor_->LineNumberAreaWidth(), 0}; }

  protected:
    void paintEvent(QPaintEvent* event) override { editor_->PaintLineNumbers(event->rect()); }
    void mousePressEvent(QMouseEvent* event) override {
        const int line = editor_->LineAt(qRound(event->position().y()));
        if (event->button() == Qt::LeftButton && line > 0) {
            emit editor_->MarginClicked(line);
        }
    }

  private:
    NumberedEditor* editor_;
};

NumberedEditor::NumberedEditor(QWidget* parent)
    : QPlainTextEdit(parent), lineNumberArea_(new LineNumberArea(*this)) {
    setFont(DataFont());
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabStopDistance(kTabColumns * fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    connect(this, &QPlainTextEdit::blockCountChanged, this, &NumberedEditor::PlaceLineNumberArea);
    connect(this, &QPlainTextEdit::updateRequest, this, &NumberedEditor::ScrollLineNumbers);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &NumberedEditor::MarkCurrentLine);
    PlaceLineNumberArea();
    MarkCurrentLine();
}

int NumberedEditor::CaretLine() const {
    return textCursor().blockNumber() + 1;
}

void NumberedEditor::GoToLine(int number) {
    const QTextBlock block =
        document()->findBlockByNumber(std::clamp(number, 1, document()->blockCount()) - 1);
    setTextCursor(QTextCursor(block));
    centerCursor();
}

void NumberedEditor::RevealLine(int number) {
    const QTextBlock block = document()->findBlockByNumber(number - 1);
    const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
    if (place.top() < 0 || place.bottom() > viewport()->height()) {
        GoToLine(number);
    } else {
        setTextCursor(QTextCursor(block));
    }
}

void NumberedEditor::AddMarkMargin(const QString& toolTip) {
    hasMarkMargin_ = true;
    lineNumberArea_->setToolTip(toolTip);
    PlaceLineNumberArea();
}

void NumberedEditor::ShowMarks(const LineMarks& marks) {
    if (marks != marks_) {
        marks_ = marks;
        if (LineNumberAreaWidth() != lineNumberArea_->width()) {
            PlaceLineNumberArea();
        }
        lineNumberArea_->update();
        MarkCurrentLine();
    }
}

int NumberedEditor::LineAt(int y) const {
    QTextBlock block = firstVisibleBlock();
    double bottom = contentOffset().y();
    for (; block.isValid(); block = block.next()) {
        bottom += blockBoundingRect(block).height();
        if (y < bottom) {
            return block.blockNumber() + 1;
        }
    }
    return 0;
}

int NumberedEditor::MarkMarginWidth() const {
    return hasMarkMargin_ ? fontMetrics().height() : 0;
}

int NumberedEditor::LineNumberAreaWidth() const {
    const int digits =
        std::max(kLeastDigits, static_cast<int>(QString::number(blockCount()).size()));
    return fontMetrics().horizontalAdvance(QLatin1Char('9')) * (digits + 1) + MarkMarginWidth() +
           CyclesWidth();
}

int NumberedEditor::CyclesWidth() const {
    std::int64_t most = 0;
    for (const auto& [line, cycles] : marks_.cycles) {
        most = std::max(most, cycles);
    }
    const int digits = std::max(kLeastCycleDigits, static_cast<int>(QString::number(most).size()));
    return marks_.showsCycles ? fontMetrics().horizontalAdvance(QLatin1Char('9')) * (digits + 1)
                              : 0;
}

void NumberedEditor::PlaceLineNumberArea() {
    const int width = LineNumberAreaWidth();
    setViewportMargins(width, 0, 0, 0);
    const QRect area = contentsRect();
    lineNumberArea_->setGeometry(area.left(), area.top(), width, area.height());
}

void NumberedEditor::ScrollLineNumbers(const QRect& area, int pixels) {
    if (pixels != 0) {
        lineNumberArea_->scroll(0, pixels);
    } else {
        lineNumberArea_->update(0, area.y(), lineNumberArea_->width(), area.height());
    }
}

void NumberedEditor::PaintLineNumbers(const QRect& area) {
    QPainter painter(lineNumberArea_);
    const QColor background = palette().color(QPalette::Window);
    painter.fillRect(area, background);
    painter.setFont(font());
    const QColor current = palette().color(QPalette::WindowText);
    const QColor quiet = Tinted(background, current, 0.6);
    const int gap = fontMetrics().horizontalAdvance(QLatin1Char('9')) / 2;
    const int lineHeight = fontMetrics().height();
    const int numbersEnd = lineNumberArea_->width() - CyclesWidth();
    QTextBlock block = firstVisibleBlock();
    double top = blockBoundingGeometry(block).translated(contentOffset()).top();
    while (block.isValid() && top <= area.bottom()) {
        painter.setPen(block.blockNumber() == textCursor().blockNumber() ? current : quiet);
        const int line = block.blockNumber() + 1;
        painter.drawText(QRectF(0, top, numbersEnd - gap, lineHeight),
                         Qt::AlignRight | Qt::AlignTop, QString::number(line));
        if (const auto cycles = marks_.cycles.find(line); cycles != marks_.cycles.end()) {
            painter.setPen(quiet);
            painter.drawText(QRectF(numbersEnd, top, CyclesWidth() - gap, lineHeight),
                             Qt::AlignRight | Qt::AlignTop, QString::number(cycles->second));
        }
        PaintMarks(painter, line, QRectF(0, top, MarkMarginWidth(), lineHeight));
        top += blockBoundingRect(block).height();
        block = block.next();
    }
}

// A round for a breakpoint and an arrow over it for the line that comes next.
void NumberedEditor::PaintMarks(QPainter& painter, int line, const QRectF& place) const {
    const double inset = place.height() / 6;
    const QRectF mark = place.adjusted(inset, inset, -inset, -inset);
    const QColor edge = palette().color(QPalette::WindowText);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (std::ranges::binary_search(marks_.breakpoints, line)) {
        const QColor quiet = Tinted(palette().color(QPalette::Window), edge, 0.5);
        painter.setPen(QPen(marks_.areValid ? kBreakpoint : quiet, inset / 2));
        painter.setBrush(marks_.areValid ? QBrush(kBreakpoint) : QBrush());
        painter.drawEllipse(mark);
    }
    if (marks_.next == line) {
        painter.setPen(QPen(edge, 1));
        painter.setBrush(kNextLine);
        const double third = mark.height() / 4;
        const double middle = mark.left() + mark.width() / 2;
        painter.drawPolygon(QPolygonF({{mark.left(), mark.top() + third},
                                       {middle, mark.top() + third},
                                       {middle, mark.top()},
                                       {mark.right(), mark.center().y()},
                                       {middle, mark.bottom()},
                                       {middle, mark.bottom() - third},
                                       {mark.left(), mark.bottom() - third}}));
    }
    painter.restore();
}

void NumberedEditor::MarkCurrentLine() {
    const QColor base = palette().color(QPalette::Base);
    const auto marked = [&](const QTextCursor& place, const QColor& tint, double share) {
        QTextEdit::ExtraSelection line;
        line.format.setBackground(Tinted(base, tint, share));
        line.format.setProperty(QTextFormat::FullWidthSelection, true);
        line.cursor = place;
        line.cursor.clearSelection();
        return line;
    };
    QList<QTextEdit::ExtraSelection> lines = {
        marked(textCursor(), palette().color(QPalette::Highlight), 0.12)};
    if (const QTextBlock next = document()->findBlockByNumber(marks_.next - 1); next.isValid()) {
        lines.push_back(marked(QTextCursor(next), kNextLine, 0.3));
    }
    setExtraSelections(lines);
}

bool NumberedEditor::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !toolTipAt_) {
        return QPlainTextEdit::viewportEvent(event);
    }
    const auto& help = dynamic_cast<QHelpEvent&>(*event);
    // The place is a gap between characters, perhaps the one behind the pointer; beyond the line's
    // end it is the end.
    const QTextCursor place = cursorForPosition(help.pos());
    const int distance = std::abs(cursorRect(place).center().x() - help.pos().x());
    const bool isOnText = distance <= fontMetrics().horizontalAdvance(QLatin1Char('9'));
    const QString text = isOnText ? toolTipAt_(place) : QString();
    QToolTip::showText(help.globalPos(), text, viewport());
    return true;
}

void NumberedEditor::resizeEvent(QResizeEvent* event) {
    if (nestedResizes_ == kMostNestedResizes) {
        return;
    }
    ++nestedResizes_;
    QPlainTextEdit::resizeEvent(event);
    PlaceLineNumberArea();
    --nestedResizes_;
}

void NumberedEditor::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        PlaceLineNumberArea();
        MarkCurrentLine();
    }
}

}  // namespace corvane::ui
