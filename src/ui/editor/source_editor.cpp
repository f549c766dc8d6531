#include "ui/editor/source_editor.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QUrl>
#include <algorithm>
#include <utility>

namespace corvane::ui {

namespace {

bool IsTyping(const QKeyEvent& event) {
    const bool isText = !event.text().isEmpty() &&
                        (event.text().at(0).isPrint() || event.text() == QLatin1String("\t"));
    return isText && (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
}

bool EndsLine(const QKeyEvent& event) {
    // The key Linefeed, which some keyboards and most keyboard macros have.
    const bool isLinefeed = event.text() == QLatin1String("\n");
    return isLinefeed || event.matches(QKeySequence::InsertParagraphSeparator) ||
           event.matches(QKeySequence::InsertLineSeparator);
}

// One more at the beginning of a line, or one less. Blanks as wide as a tab count as one.
void ShiftLine(const QTextBlock& line, bool right) {
    const QString text = line.text();
    QTextCursor writer(line);
    if (right && !text.isEmpty()) {
        writer.insertText(QStringLiteral("\t"));
    } else if (!right && text.startsWith(QLatin1Char('\t'))) {
        writer.deleteChar();
    } else if (!right) {
        const auto isBlank = [](QChar c) { return c == QLatin1Char(' '); };
        const auto* end = std::find_if_not(text.begin(), text.end(), isBlank);
        const auto blanks = std::min<qsizetype>(end - text.begin(), kTabColumns);
        writer.setPosition(line.position() + static_cast<int>(blanks), QTextCursor::KeepAnchor);
        writer.removeSelectedText();
    }
}

QString LocalFileOf(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
}

// Undoes what is scrolled meanwhile, because the toolkit keeps the caret in view.
class StillView {
  public:
    explicit StillView(const QPlainTextEdit& editor)
        : rows_(editor.verticalScrollBar()),
          columns_(editor.horizontalScrollBar()),
          top_(rows_->value()),
          left_(columns_->value()) {}
    ~StillView() {
        rows_->setValue(top_);
        columns_->setValue(left_);
    }
    StillView(const StillView&) = delete;
    StillView& operator=(const StillView&) = delete;

  private:
    QScrollBar* rows_;
    QScrollBar* columns_;
    int top_;
    int left_;
};

// Makes the line read so. Touches only what differs, so that the caret keeps its place.
void ReplaceLine(const QTextBlock& line, const QString& text, QTextCursor& writer) {
    const QString old = line.text();
    const auto [oldDiffers, textDiffers] =
        std::mismatch(old.begin(), old.end(), text.begin(), text.end());
    const auto same = static_cast<int>(oldDiffers - old.begin());
    const auto [oldEnd, textEnd] =
        std::mismatch(old.rbegin(), std::make_reverse_iterator(oldDiffers), text.rbegin(),
                      std::make_reverse_iterator(textDiffers));
    const auto sameAtEnd = static_cast<int>(oldEnd - old.rbegin());
    const int start = line.position() + same;
    writer.setPosition(start);
    writer.setPosition(line.position() + static_cast<int>(old.size()) - sameAtEnd,
                       QTextCursor::KeepAnchor);
    writer.insertText(text.mid(same, text.size() - same - sameAtEnd));
}

}  // namespace

SourceEditor::SourceEditor(SourceLanguage language, QWidget* parent)
    : NumberedEditor(parent), language_(std::move(language)), highlighter_(*document(), language_) {
    highlighter_.SetPalette(palette());
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &SourceEditor::FollowCaret);
    connect(document(), &QTextDocument::contentsChange, this, [this] { hasChanged_ = true; });
}

void SourceEditor::SetFormEnabled(bool enabled) {
    formEnabled_ = enabled;
    SetEditedLine({});
    highlighter_.SetEnabled(enabled);
}

void SourceEditor::Load(const QString& text) {
    SetEditedLine({});
    isEditing_ = true;
    setPlainText(formEnabled_ ? FormedText(text, language_) : text);
    isEditing_ = false;
}

void SourceEditor::LoadAnew(const QString& text) {
    const int line = textCursor().blockNumber();
    const int column = textCursor().positionInBlock();
    const StillView view(*this);
    Load(text);
    const QTextBlock block = document()->findBlockByNumber(std::min(line, blockCount() - 1));
    const int position = block.position() + std::min(column, block.length() - 1);
    Select(position, position);
}

void SourceEditor::Clear() {
    SetEditedLine({});
    clear();
}

QString SourceEditor::Text() const {
    // Not toPlainText(), which takes hard blanks for blanks.
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    return text;
}

void SourceEditor::FormWholeText() {
    if (!formEnabled_) {
        return;
    }
    const StillView view(*this);
    SetEditedLine({});
    isEditing_ = true;
    QTextCursor writer = BeginFollowUp();
    FormLines(writer);
    if (document()->lastBlock().length() > 1 || document()->blockCount() == 1) {
        const QTextCursor caret = textCursor();
        const int anchor = caret.anchor();
        const int position = caret.position();
        writer.movePosition(QTextCursor::End);
        writer.insertBlock();
        Select(anchor, position);  // a caret at the end has been pushed on
    }
    writer.endEditBlock();
    isEditing_ = false;
}

// What is done to the text from here on is undone together with the last edit.
QTextCursor SourceEditor::BeginFollowUp() {
    QTextCursor writer(document());
    if (document()->isUndoAvailable() && !document()->isRedoAvailable()) {
        writer.joinPreviousEditBlock();
    } else {
        writer.beginEditBlock();
    }
    return writer;
}

void SourceEditor::Select(int anchor, int position) {
    QTextCursor caret = textCursor();
    caret.setPosition(anchor);
    caret.setPosition(position, QTextCursor::KeepAnchor);
    setTextCursor(caret);
}

// Takes the text as a whole, because asking the document for line after line takes much longer.
void SourceEditor::FormLines(QTextCursor& writer) const {
    const std::string text = Text().toStdString();
    std::string_view rest = text;
    for (int number = 0; number < blockCount(); ++number) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        const std::string formed = language_.form(line);
        if (formed != line) {
            ReplaceLine(document()->findBlockByNumber(number), QString::fromStdString(formed),
                        writer);
        }
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
}

void SourceEditor::FormLine(const QTextBlock& line, QTextCursor& writer) const {
    const std::string text = line.text().toStdString();
    const std::string formed = language_.form(text);
    if (formed != text) {
        ReplaceLine(line, QString::fromStdString(formed), writer);
    }
}

void SourceEditor::SetEditedLine(const QTextCursor& line) {
    editedLine_ = line;
    highlighter_.SetEditedLine(line);
    typedUpTo_ = -1;
}

void SourceEditor::LeaveEditedLine() {
    const QTextBlock line = editedLine_.block();
    const bool wasEditing = std::exchange(isEditing_, true);
    QTextCursor writer = BeginFollowUp();
    FormLine(line, writer);
    writer.endEditBlock();
    isEditing_ = wasEditing;
    SetEditedLine({});
}

void SourceEditor::FollowCaret() {
    if (!isEditing_ && !editedLine_.isNull() && editedLine_.block() != textCursor().block()) {
        LeaveEditedLine();
    }
}

// Runs an edit as an undo step and gives the lines that the caret has left their form. Nothing may
// look at the layout meanwhile: it follows the text when the step ends.
void SourceEditor::EditInOneStep(const std::function<void()>& edit, bool continuesTyping) {
    Edit([&] {
        QTextCursor step(document());
        if (continuesTyping) {
            step.joinPreviousEditBlock();
        } else {
            step.beginEditBlock();
        }
        edit();
        step.endEditBlock();
    });
}

// The same for an edit that makes its undo step itself.
void SourceEditor::Edit(const std::function<void()>& edit) {
    QTextCursor lineBefore = textCursor();
    lineBefore.setPosition(lineBefore.block().position());
    hasChanged_ = false;
    isEditing_ = true;
    edit();
    isEditing_ = false;
    if (!hasChanged_) {
        FollowCaret();
        return;
    }
    if (formEnabled_) {
        FormLinesLeftBy(lineBefore);
    }
    ensureCursorVisible();
}

void SourceEditor::FormLinesLeftBy(const QTextCursor& lineBefore) {
    const QTextBlock caretLine = textCursor().block();
    FollowCaret();
    if (lineBefore.block() != caretLine && lineBefore.block().isValid()) {
        SetEditedLine(lineBefore);
        LeaveEditedLine();
    }
    QTextCursor line(document());
    line.setPosition(textCursor().block().position());
    SetEditedLine(line);
}

void SourceEditor::Type(const QString& text) {
    const bool continuesTyping =
        !textCursor().hasSelection() && typedUpTo_ == textCursor().position();
    EditInOneStep([&] { textCursor().insertText(text); }, continuesTyping);
    typedUpTo_ = textCursor().position();
}

bool SourceEditor::SelectsLines() const {
    const QTextCursor selection = textCursor();
    const QTextBlock first = document()->findBlock(selection.selectionStart());
    const int end = first.position() + first.length() - 1;
    const bool isWholeLine =
        selection.selectionStart() == first.position() && selection.selectionEnd() == end;
    return selection.hasSelection() && (isWholeLine || selection.selectionEnd() > end);
}

// A line that the selection only reaches, without a character of it, stays.
void SourceEditor::ShiftLines(bool right) {
    const QTextCursor selection = textCursor();
    const int first = document()->findBlock(selection.selectionStart()).blockNumber();
    const QTextBlock lastBlock = document()->findBlock(selection.selectionEnd());
    const bool isReachedOnly =
        lastBlock.blockNumber() > first && lastBlock.position() == selection.selectionEnd();
    const int last = lastBlock.blockNumber() - (isReachedOnly ? 1 : 0);
    EditInOneStep([&] {
        for (int line = first; line <= last; ++line) {
            ShiftLine(document()->findBlockByNumber(line), right);
        }
    });
    if (selection.hasSelection()) {
        const QTextBlock end = document()->findBlockByNumber(last);
        Select(document()->findBlockByNumber(first).position(),
               end.position() + end.length() - (isReachedOnly ? 0 : 1));
    }
}

void SourceEditor::ReplaceSelection(const QString& text) {
    if (!isReadOnly()) {
        EditInOneStep([&] { textCursor().insertText(text); });
    }
}

int SourceEditor::ReplaceAll(const QString& text, const QString& replacement,
                             QTextDocument::FindFlags flags) {
    int count = 0;
    if (isReadOnly()) {
        return count;
    }
    EditInOneStep([&] {
        QTextCursor found = document()->find(text, 0, flags);
        for (; !found.isNull(); found = document()->find(text, found.position(), flags)) {
            found.insertText(replacement);
            ++count;
        }
    });
    if (count > 0) {
        FormWholeText();
    }
    return count;
}

void SourceEditor::Undo() {
    SetEditedLine({});
    undo();
}

void SourceEditor::Redo() {
    SetEditedLine({});
    redo();
}

void SourceEditor::Cut() {
    EditInOneStep([this] { cut(); });
}

void SourceEditor::Paste() {
    paste();  // comes back in insertFromMimeData
}

void SourceEditor::keyPressEvent(QKeyEvent* event) {
    if (isReadOnly()) {
        NumberedEditor::keyPressEvent(event);
        return;
    }
    const bool isTab = event->key() == Qt::Key_Tab && event->modifiers() == Qt::NoModifier;
    if (event->key() == Qt::Key_Backtab || (isTab && SelectsLines())) {
        ShiftLines(isTab);
    } else if (event->matches(QKeySequence::Undo)) {
        Undo();
    } else if (event->matches(QKeySequence::Redo)) {
        Redo();
    } else if (event->matches(QKeySequence::Paste)) {
        Paste();
    } else if (EndsLine(*event)) {
        EditInOneStep([this] { textCursor().insertBlock(); });  // there is one kind of line end
    } else if (IsTyping(*event)) {
        Type(event->text());
    } else {
        Edit([this, event] { NumberedEditor::keyPressEvent(event); });
        typedUpTo_ = -1;
        return;
    }
    event->accept();
}

// An empty clipboard has no formats, and the toolkit does not survive its being pasted.
bool SourceEditor::canInsertFromMimeData(const QMimeData* source) const {
    return !source->formats().isEmpty() && NumberedEditor::canInsertFromMimeData(source);
}

void SourceEditor::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly() || source->formats().isEmpty() || !source->hasText()) {
        return;
    }
    const QString file = isDropping_ ? LocalFileOf(*source) : QString();
    if (!file.isEmpty()) {
        // The text cannot be replaced while something is being dropped on it.
        QMetaObject::invokeMethod(this, "FileDropped", Qt::QueuedConnection, Q_ARG(QString, file));
        return;
    }
    EditInOneStep([this, source] {
        QString text = source->text();
        text.replace(QChar::LineSeparator, QLatin1Char('\n'));
        textCursor().insertText(text);
    });
    FormWholeText();
    ensureCursorVisible();
}

void SourceEditor::contextMenuEvent(QContextMenuEvent* event) {
    if (isReadOnly()) {
        NumberedEditor::contextMenuEvent(event);
        return;
    }
    // Not on the stack: the window can be closed while the menu is open.
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(contextActions_);
    menu->popup(event->globalPos());
}

void SourceEditor::dropEvent(QDropEvent* event) {
    isDropping_ = true;
    NumberedEditor::dropEvent(event);
    isDropping_ = false;
}

void SourceEditor::changeEvent(QEvent* event) {
    NumberedEditor::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        highlighter_.SetPalette(palette());
    }
}

}  // namespace corvane::ui
