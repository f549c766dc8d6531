#include "ui/editor/numbered_editor.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>
#include <algorithm>

#include "ui/widgets/data_font.h"
#include "ui/widgets/tinted.h"

namespace corvane::ui {

namespace {

constexpr int kLeastDigits = 3;

// In an editor of a few lines, each scroll bar can come and go because of the other without end.
constexpr int kMostNestedResizes = 8;

}  // namespace

class LineNumberArea final : public QWidget {
  public:
    explicit LineNumberArea(NumberedEditor& editor) : QWidget(&editor), editor_(&editor) {}

    QSize sizeHint() const override { return {editor_->LineNumberAreaWidth(), 0}; }

  protected:
    void paintEvent(QPaintEvent* event) override { editor_->PaintLineNumbers(event->rect()); }

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

int NumberedEditor::LineNumberAreaWidth() const {
    const int digits =
        std::max(kLeastDigits, static_cast<int>(QString::number(blockCount()).size()));
    return fontMetrics().horizontalAdvance(QLatin1Char('9')) * (digits + 1);
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
    QTextBlock block = firstVisibleBlock();
    double top = blockBoundingGeometry(block).translated(contentOffset()).top();
    while (block.isValid() && top <= area.bottom()) {
        painter.setPen(block.blockNumber() == textCursor().blockNumber() ? current : quiet);
        painter.drawText(QRectF(0, top, lineNumberArea_->width() - gap, lineHeight),
                         Qt::AlignRight | Qt::AlignTop, QString::number(block.blockNumber() + 1));
        top += blockBoundingRect(block).height();
        block = block.next();
    }
}

void NumberedEditor::MarkCurrentLine() {
    QTextEdit::ExtraSelection line;
    line.format.setBackground(
        Tinted(palette().color(QPalette::Base), palette().color(QPalette::Highlight), 0.12));
    line.format.setProperty(QTextFormat::FullWidthSelection, true);
    line.cursor = textCursor();
    line.cursor.clearSelection();
    setExtraSelections({line});
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
