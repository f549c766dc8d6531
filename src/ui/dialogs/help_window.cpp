#include "ui/dialogs/help_window.h"

#include <QAbstractTextDocumentLayout>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QUrl>
#include <QVBoxLayout>
#include <functional>

#include "ui/widgets/clear_button.h"
#include "ui/window/accessible_window.h"
#include "ui/window/text_search.h"

namespace corvane::ui {

namespace {

// "memory-viewers" for "Memory viewers", as links in the texts have it.
QString AnchorOf(const QString& heading) {
    return heading.toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
}

// The texts link to their own headings, which the toolkit does not look up.
void FollowLink(QTextBrowser& browser, const QUrl& link) {
    if (link.scheme() != browser.source().scheme()) {
        QDesktopServices::openUrl(link);
        return;
    }
    for (QTextBlock block = browser.document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0 && AnchorOf(block.text()) == link.fragment()) {
            const QRectF place = browser.document()->documentLayout()->blockBoundingRect(block);
            browser.verticalScrollBar()->setValue(static_cast<int>(place.top()));
            return;
        }
    }
}

// Room above headings and around what stands in tables.
void SpaceOut(QTextDocument& document) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        if (format.headingLevel() > 1) {
            format.setTopMargin(20);
            QTextCursor(block).setBlockFormat(format);
        }
    }
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(frame)) {
            QTextTableFormat format = table->format();
            format.setCellPadding(4);
            format.setBorderCollapse(true);
            table->setFormat(format);
        }
    }
}

void OnKeys(QWidget& window, const QList<QKeySequence>& keys, const std::function<void()>& act) {
    for (const QKeySequence& sequence : keys) {
        const auto* shortcut = new QShortcut(sequence, &window);
        QObject::connect(shortcut, &QShortcut::activated, &window, act);
    }
}

}  // namespace

HelpWindow::HelpWindow(const QString& title, const QString& fileName)
    : text_(new QTextBrowser), words_(new QLineEdit), message_(new QLabel) {
    setObjectName("HelpWindow");
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    MakeAccessibleAsWindow(*this);
    resize(720, 640);
    ShowText(title, fileName);

    auto* close = new QPushButton(tr("Close"));
    close->setObjectName("Command1");
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    OnKeys(*this, {Qt::Key_Escape, QKeySequence::Close}, [this] { this->close(); });
    QHBoxLayout* footer = MakeSearch();
    footer->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_);
    layout->addLayout(footer);
    text_->setFocus();
}

void HelpWindow::ShowText(const QString& title, const QString& fileName) {
    text_->setObjectName("helpText");
    text_->setAccessibleName(title);
    text_->setOpenLinks(false);
    connect(text_, &QTextBrowser::anchorClicked, text_,
            [text = text_](const QUrl& link) { FollowLink(*text, link); });
    text_->document()->setDocumentMargin(16);
    text_->setSource(QUrl(QStringLiteral("qrc:/help/") + fileName),
                     QTextDocument::MarkdownResource);
    SpaceOut(*text_->document());
}

QHBoxLayout* HelpWindow::MakeSearch() {
    words_->setObjectName("findText");
    AddClearButton(*words_, tr("Clear the text to find"));
    message_->setObjectName("findMessage");
    auto* caption = new QLabel(tr("&Find:"));
    caption->setBuddy(words_);
    auto* next = new QPushButton(tr("&Next"));
    auto* previous = new QPushButton(tr("&Previous"));
    connect(words_, &QLineEdit::textEdited, message_, &QLabel::clear);
    connect(next, &QPushButton::clicked, this, [this] { Find(false); });
    connect(previous, &QPushButton::clicked, this, [this] { Find(true); });
    OnKeys(*this, {QKeySequence::Find}, [this] {
        words_->selectAll();
        words_->setFocus();
    });
    OnKeys(*this, {QKeySequence::FindNext}, [this] { Find(false); });
    OnKeys(*this, {QKeySequence::FindPrevious}, [this] { Find(true); });
    auto* line = new QHBoxLayout;
    for (QWidget* widget : QList<QWidget*>{caption, words_, previous, next}) {
        line->addWidget(widget);
    }
    line->addWidget(message_, 1);
    return line;
}

void HelpWindow::Find(bool backwards) {
    message_->clear();
    if (words_->text().isEmpty()) {
        return;
    }
    const QTextCursor found =
        FindInText(words_->text(), text_->textCursor(),
                   backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags());
    if (found.isNull()) {
        message_->setText(tr("Not found"));
    } else {
        text_->setTextCursor(found);
    }
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Find(event->modifiers().testFlag(Qt::ShiftModifier));
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace corvane::ui
