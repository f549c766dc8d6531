#include "ui/asm/output_pane.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTextBlock>
#include <algorithm>
#include <utility>

#include "ui/common/data_font.h"
#include "ui/common/tinted.h"

namespace corvane::ui {

namespace {

bool IsBefore(const OutputLink& link, int line) {
    return link.outputLine < line;
}

}  // namespace

OutputPane::OutputPane(QWidget* parent) : QPlainTextEdit(parent) {
    setFont(DataFont());
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setUndoRedoEnabled(false);
    viewport()->setMouseTracking(true);
}

void OutputPane::ShowOutput(const QString& text, std::vector<OutputLink> links) {
    links_ = std::move(links);
    followedLine_.reset();
    setPlainText(text);
    moveCursor(QTextCursor::End);
    MarkLinks();
}

void OutputPane::Clear() {
    ShowOutput(QString(), {});
}

const OutputLink* OutputPane::LinkAt(const QTextCursor& position) const {
    const int line = position.blockNumber() + 1;
    const auto found = std::lower_bound(links_.begin(), links_.end(), line, IsBefore);
    return found != links_.end() && found->outputLine == line ? &*found : nullptr;
}

void OutputPane::FollowNext() {
    if (links_.empty()) {
        return;
    }
    const int line = followedLine_.value_or(0);
    const auto next = std::lower_bound(links_.begin(), links_.end(), line + 1, IsBefore);
    Follow(next != links_.end() ? *next : links_.front());
}

void OutputPane::FollowPrevious() {
    if (links_.empty()) {
        return;
    }
    const int line = followedLine_.value_or(0);
    const auto next = std::lower_bound(links_.begin(), links_.end(), line, IsBefore);
    Follow(next != links_.begin() ? *std::prev(next) : links_.back());
}

void OutputPane::Follow(const OutputLink& link) {
    const int outputLine = link.outputLine;
    const int sourceLine = link.sourceLine;
    followedLine_ = outputLine;
    setTextCursor(QTextCursor(document()->findBlockByNumber(outputLine - 1)));
    ensureCursorVisible();
    MarkLinks();
    emit LinkFollowed(sourceLine);
}

// A link looks like one, and the one that was followed last is marked.
void OutputPane::MarkLinks() {
    QList<QTextEdit::ExtraSelection> selections;
    for (const OutputLink& link : links_) {
        QTextEdit::ExtraSelection selection;
        selection.cursor = QTextCursor(document()->findBlockByNumber(link.outputLine - 1));
        if (followedLine_ == link.outputLine) {
            selection.format.setBackground(Tinted(palette().color(QPalette::Base),
                                                  palette().color(QPalette::Highlight), 0.25));
            selection.format.setProperty(QTextFormat::FullWidthSelection, true);
            selections.append(selection);
            selection.format = QTextCharFormat();
        }
        selection.format.setForeground(palette().color(QPalette::Link));
        selection.format.setFontUnderline(true);
        const QTextBlock line = selection.cursor.block();
        const qsizetype length = QStringView(line.text()).trimmed().size();
        selection.cursor.setPosition(line.position() + static_cast<int>(length),
                                     QTextCursor::KeepAnchor);
        selections.append(selection);
    }
    setExtraSelections(selections);
}

void OutputPane::mouseMoveEvent(QMouseEvent* event) {
    const bool isOnLink = LinkAt(cursorForPosition(event->pos())) != nullptr;
    viewport()->setCursor(isOnLink ? Qt::PointingHandCursor : Qt::IBeamCursor);
    QPlainTextEdit::mouseMoveEvent(event);
}

void OutputPane::mouseReleaseEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseReleaseEvent(event);
    const OutputLink* link = LinkAt(cursorForPosition(event->pos()));
    if (event->button() == Qt::LeftButton && link != nullptr && !textCursor().hasSelection()) {
        Follow(*link);
    }
}

void OutputPane::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const OutputLink* link = LinkAt(textCursor());
    if (isEnter && link != nullptr) {
        Follow(*link);
    } else {
        QPlainTextEdit::keyPressEvent(event);
    }
}

void OutputPane::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        MarkLinks();
    }
}

}  // namespace corvane::ui
