#include "ui/viewers/memory_text.h"

#include <QPainter>
#include <QShortcut>
#include <QStyle>
#include <QTextBlock>

#include "ui/widgets/data_font.h"
#include "ui/widgets/heading.h"
#include "ui/window/command.h"

namespace corvane::ui {

namespace {

using Formats = QList<QTextLayout::FormatRange>;

// Bold for the fields, which blanks separate, that are not the same in a line of the same form.
Formats ChangedFields(const QString& before, const QString& now) {
    Formats formats;
    qsizetype start = 0;
    for (const QString& field : now.split(QLatin1Char(' '))) {
        if (before.mid(start, field.size()) != field) {
            QTextLayout::FormatRange range{.start = static_cast<int>(start),
                                           .length = static_cast<int>(field.size()),
                                           .format = {}};
            range.format.setFontWeight(QFont::Bold);
            formats.append(range);
        }
        start += field.size() + 1;
    }
    return formats;
}

void SetFormats(QTextDocument& document, const QTextBlock& block, const Formats& formats) {
    if (block.layout()->formats() != formats) {
        block.layout()->setFormats(formats);
        document.markContentsDirty(block.position(), block.length());
    }
}

}  // namespace

MemoryText::MemoryText(int columns, int lines) : contextMenu_(new QMenu(this)) {
    setFont(DataFont());
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::TabFocus);
    setTabChangesFocus(true);
    AddCommand(*contextMenu_, {"memorycopy", tr("&Copy") + "\tCtrl+C"}, *this, [this] { copy(); });
    AddCommand(*contextMenu_, {"memoryselectall", tr("Select &All") + "\tCtrl+A"}, *this,
               [this] { selectAll(); });
    setUndoRedoEnabled(false);
    setLineWrapMode(NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const int border = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    constexpr int kSlack = 2;  // pixels that keep the last line from counting as cut
    size_ = DataTextSize(columns, lines) + QSize(border, border + kSlack);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void MemoryText::ShowText(const std::string& text, SinceLastDraw since) {
    const QStringList lines = QString::fromStdString(text).split(QStringLiteral("\r\n"));
    if (document()->blockCount() != lines.size()) {
        setPlainText(lines.join(QLatin1Char('\n')));
        return;
    }
    QTextCursor selection = textCursor();
    const int anchor = selection.anchor();
    const int position = selection.position();
    ShowLines(lines, since);
    if (textCursor().anchor() != anchor || textCursor().position() != position) {
        selection.setPosition(anchor);
        selection.setPosition(position, QTextCursor::KeepAnchor);
        setTextCursor(selection);
    }
}

void MemoryText::ShowLines(const QStringList& lines, SinceLastDraw since) {
    QTextBlock block = document()->firstBlock();
    for (const QString& line : lines) {
        const QString before = block.text();
        if (before != line) {
            QTextCursor cursor(block);
            cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            cursor.insertText(line);
        }
        if (since != SinceLastDraw::Nothing) {
            SetFormats(*document(), block,
                       since == SinceLastDraw::OneStep ? ChangedFields(before, line) : Formats());
        }
        block = block.next();
    }
}

void MemoryText::SelectLine(int line) {
    QTextCursor cursor(document()->findBlockByNumber(line));
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void MemoryText::Serve(QWidget& window, QWidget& button) {
    focusTaker_ = &button;
    const auto* copyKey = new QShortcut(QKeySequence::Copy, &window);
    connect(copyKey, &QShortcut::activated, this, &QPlainTextEdit::copy);
}

void MemoryText::OfferChange() {
    AddCommand(*contextMenu_, {"memorychange", tr("Change &Value...") + "\tF2"}, *this,
               [this] { Choose(textCursor()); });
}

void MemoryText::Choose(const QTextCursor& place) {
    emit FieldChosen(place.blockNumber(), place.positionInBlock());
}

void MemoryText::mousePressEvent(QMouseEvent* event) {
    QPlainTextEdit::mousePressEvent(event);
    if (focusTaker_ != nullptr) {
        focusTaker_->setFocus(Qt::MouseFocusReason);
    }
}

void MemoryText::mouseDoubleClickEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseDoubleClickEvent(event);
    Choose(cursorForPosition(event->pos()));
}

void MemoryText::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F2 || event->key() == Qt::Key_Return ||
        event->key() == Qt::Key_Enter) {
        Choose(textCursor());
    } else {
        QPlainTextEdit::keyPressEvent(event);
    }
}

void MemoryText::contextMenuEvent(QContextMenuEvent* event) {
    if (!textCursor().hasSelection()) {
        setTextCursor(cursorForPosition(event->pos()));
    }
    contextMenu_->popup(event->globalPos());
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
