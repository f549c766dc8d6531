#include "ui/editor/find_bar.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextBlock>

#include "ui/widgets/clear_button.h"
#include "ui/window/text_search.h"

namespace corvane::ui {

namespace {

// The captions and the texts stand below each other, what belongs to a text beside it.
void AddLine(QGridLayout& grid, const QList<QWidget*>& widgets) {
    const int row = grid.rowCount();
    auto* rest = new QHBoxLayout;
    grid.addWidget(widgets[0], row, 0);
    grid.addWidget(widgets[1], row, 1);
    grid.addLayout(rest, row, 2);
    for (QWidget* widget : widgets.mid(2)) {
        rest->addWidget(widget);
    }
    rest->addStretch();
}

}  // namespace

FindBar::FindBar(SourceEditor& editor, QWidget* parent)
    : QWidget(parent),
      editor_(&editor),
      text_(new QLineEdit),
      replacement_(new QLineEdit),
      matchCase_(new QCheckBox(tr("&Match case"))),
      message_(new QLabel) {
    message_->setObjectName("findMessage");
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(6, 2, 6, 2);
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(1, 1);
    MakeFindLine(*grid);
    MakeReplaceLine(*grid);
    hide();
}

void FindBar::MakeFindLine(QGridLayout& grid) {
    auto* caption = new QLabel(tr("F&ind:"));
    caption->setBuddy(text_);
    auto* previous = new QPushButton(tr("P&revious"));
    auto* next = new QPushButton(tr("&Next"));
    auto* close = new QPushButton(tr("C&lose"));
    text_->setObjectName("findText");
    AddClearButton(*text_, tr("Clear the text to find"));
    AddLine(grid, {caption, text_, message_, matchCase_, previous, next, close});
    connect(text_, &QLineEdit::textEdited, this, &FindBar::FindWhileTyping);
    connect(matchCase_, &QCheckBox::toggled, this, &FindBar::FindWhileTyping);
    connect(previous, &QPushButton::clicked, this, &FindBar::FindPrevious);
    connect(next, &QPushButton::clicked, this, &FindBar::FindNext);
    connect(close, &QPushButton::clicked, this, &FindBar::Close);
}

void FindBar::MakeReplaceLine(QGridLayout& grid) {
    auto* caption = new QLabel(tr("Re&place with:"));
    caption->setBuddy(replacement_);
    auto* replace = new QPushButton(tr("Repla&ce"));
    auto* replaceAll = new QPushButton(tr("Replace &All"));
    replacement_->setObjectName("replaceText");
    AddClearButton(*replacement_, tr("Clear the replacement"));
    replace->setObjectName("replace");
    replaceAll->setObjectName("replaceAll");
    replaceLine_ = {caption, replacement_, replace, replaceAll};
    AddLine(grid, replaceLine_);
    connect(replace, &QPushButton::clicked, this, &FindBar::Replace);
    connect(replaceAll, &QPushButton::clicked, this, &FindBar::ReplaceAll);
}

void FindBar::Open() {
    Show(false);
}

void FindBar::OpenReplace() {
    Show(true);
}

void FindBar::Show(bool withReplacement) {
    const QTextCursor selection = editor_->textCursor();
    const bool isWithinLine = selection.document()->findBlock(selection.selectionStart()) ==
                              selection.document()->findBlock(selection.selectionEnd());
    if (selection.hasSelection() && isWithinLine) {
        text_->setText(selection.selectedText());
    }
    message_->clear();
    for (QWidget* widget : replaceLine_) {
        widget->setVisible(withReplacement);
    }
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
    if (text_->text().isEmpty()) {
        return;
    }
    QTextDocument::FindFlags flags = Flags();
    flags.setFlag(QTextDocument::FindBackward, backwards);
    const QTextCursor found = FindInText(text_->text(), editor_->textCursor(), flags);
    if (found.isNull()) {
        message_->setText(tr("Not found"));
    } else {
        editor_->setTextCursor(found);
    }
}

QTextDocument::FindFlags FindBar::Flags() const {
    return matchCase_->isChecked() ? QTextDocument::FindCaseSensitively
                                   : QTextDocument::FindFlags();
}

bool FindBar::IsFound(const QString& text) const {
    return !text.isEmpty() &&
           text.compare(text_->text(),
                        matchCase_->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive) == 0;
}

// What is selected is replaced only if it is what is looked for; then the next one is selected.
void FindBar::Replace() {
    if (IsFound(editor_->textCursor().selectedText())) {
        editor_->ReplaceSelection(replacement_->text());
    }
    FindNext();
}

void FindBar::ReplaceAll() {
    if (text_->text().isEmpty()) {
        return;
    }
    const int count = editor_->ReplaceAll(text_->text(), replacement_->text(), Flags());
    message_->setText(count == 0 ? tr("Not found") : tr("%1 replaced").arg(count));
}

void FindBar::Close() {
    hide();
    editor_->setFocus();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        Close();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (replacement_->hasFocus()) {
            Replace();
        } else {
            Find(event->modifiers().testFlag(Qt::ShiftModifier));
        }
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace corvane::ui
