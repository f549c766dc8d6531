#include "ui/viewers/memory_text.h"

#include <QPainter>
#include <QStyle>
#include <QTextBlock>

#include "ui/common/data_font.h"
#include "ui/common/heading.h"

namespace corvane::ui {

MemoryText::MemoryText(int columns, int lines) {
    setFont(DataFont());
    setReadOnly(true);
    setTextInteractionFlags(Qt::NoTextInteraction);
    setUndoRedoEnabled(false);
    setLineWrapMode(NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const int border = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    constexpr int kSlack = 2;  // pixels that keep the last line from counting as cut
    size_ = DataTextSize(columns, lines) + QSize(border, border + kSlack);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void MemoryText::ShowText(const std::string& text) {
    const QStringList lines = QString::fromStdString(text).split(QStringLiteral("\r\n"));
    if (document()->blockCount() != lines.size()) {
        setPlainText(lines.join(QLatin1Char('\n')));
        return;
    }
    QTextBlock block = document()->firstBlock();
    for (const QString& line : lines) {
        if (block.text() != line) {
            QTextCursor cursor(block);
            cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            cursor.insertText(line);
        }
        block = block.next();
    }
}

MemoryHeading::MemoryHeading(const QString& text, std::initializer_list<int> columns)
    : QLabel(text), columns_(columns) {
    setTextFormat(Qt::PlainText);
    MakeHeading(*this);
}

void MemoryHeading::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QStringList words = text().split(QStringLiteral("  "), Qt::SkipEmptyParts);
    constexpr int kTextMargin = 5;  // frame and document margin of the memory's text
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const int left = kTextMargin + DataTextSize(columns_[i], 1).width();
        style()->drawItemText(&painter, rect().adjusted(left, 0, 0, 0),
                              Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                              words.value(static_cast<qsizetype>(i)).trimmed(), foregroundRole());
    }
}

}  // namespace corvane::ui
