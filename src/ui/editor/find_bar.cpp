#include "ui/editor/find_bar.h"

#include <QAction>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>

namespace corvane::ui {

FindBar::FindBar(QPlainTextEdit& editor, QWidget* parent)
    : QWidget(parent),
      editor_(&editor),
      text_(new QLineEdit),
      matchCase_(new QCheckBox(tr("&Match case"))),
      message_(new QLabel) {
    message_->setObjectName("findMessage");
    auto* caption = new QLabel(tr("F&ind:"));
    caption->setBuddy(text_);
    auto* previous = new QPushButton(tr("P&revious"));
    auto* next = new QPushButton(tr("&Next"));
    auto* close = new QPushButton(tr("C&lose"));
    text_->setObjectName("findText");
    text_->setClearButtonEnabled(true);
    for (QAction* clear : text_->findChildren<QAction*>()) {
        clear->setText(tr("Clear the text to find"));  // the toolkit's button has but an icon
    }
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 2);
    layout->addWidget(caption);
    layout->addWidget(text_, 1);
    layout->addWidget(message_);
    layout->addWidget(matchCase_);
    layout->addWidget(previous);
    layout->addWidget(next);
    layout->addWidget(close);
    connect(text_, &QLineEdit::textEdited, this, &FindBar::FindWhileTyping);
    connect(matchCase_, &QCheckBox::toggled, this, &FindBar::FindWhileTyping);
    connect(previous, &QPushButton::clicked, this, &FindBar::FindPrevious);
    connect(next, &QPushButton::clicked, this, &FindBar::FindNext);
    connect(close, &QPushButton::clicked, this, &FindBar::Close);
    hide();
}

void FindBar::Open() {
    const QTextCursor selection = editor_->textCursor();
    const bool isWithinLine = selection.document()->findBlock(selection.selectionStart()) ==
                              selection.document()->findBlock(selection.selectionEnd());
    if (selection.hasSelection() && isWithinLine) {
        text_->setText(selection.selectedText());
    }
    message_->clear();
    show();
    text_->selectAll();
    text_->setFocus();
}

void FindBar::FindNext() {
    Find(false);
}

void FindBar::FindPrevious() {
    Find(true);
}

// What has been found stays found while it grows.
void FindBar::FindWhileTyping() {
    QTextCursor start = editor_->textCursor();
    start.setPosition(start.selectionStart());
    editor_->setTextCursor(start);
    FindNext();
}

void FindBar::Find(bool backwards) {
    message_->clear();
    if (text_->text().isEmpty() || FindFrom(editor_->textCursor(), backwards)) {
        return;
    }
    QTextCursor farEnd(editor_->document());
    farEnd.movePosition(backwards ? QTextCursor::End : QTextCursor::Start);
    if (!FindFrom(farEnd, backwards)) {
        message_->setText(tr("Not found"));
    }
}

bool FindBar::FindFrom(const QTextCursor& start, bool backwards) {
    QTextDocument::FindFlags flags;
    flags.setFlag(QTextDocument::FindBackward, backwards);
    flags.setFlag(QTextDocument::FindCaseSensitively, matchCase_->isChecked());
    const QTextCursor found = editor_->document()->find(text_->text(), start, flags);
    if (found.isNull()) {
        return false;
    }
    editor_->setTextCursor(found);
    return true;
}

void FindBar::Close() {
    hide();
    editor_->setFocus();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        Close();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Find(event->modifiers().testFlag(Qt::ShiftModifier));
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace corvane::ui
