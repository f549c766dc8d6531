#include "ui/dialogs/help_window.h"

#include <QAbstractTextDocumentLayout>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QUrl>
#include <QVBoxLayout>

#include "ui/common/accessible_window.h"

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

}  // namespace

HelpWindow::HelpWindow(const QString& title, const QString& fileName) {
    setObjectName("HelpWindow");
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    MakeAccessibleAsWindow(*this);
    resize(720, 640);

    auto* text = new QTextBrowser;
    text->setAccessibleName(title);
    text->setOpenLinks(false);
    connect(text, &QTextBrowser::anchorClicked, text,
            [text](const QUrl& link) { FollowLink(*text, link); });
    text->document()->setDocumentMargin(16);
    text->setSource(QUrl(QStringLiteral("qrc:/help/") + fileName), QTextDocument::MarkdownResource);
    SpaceOut(*text->document());
    auto* close = new QPushButton(tr("Close"));
    close->setObjectName("Command1");
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    for (const QKeySequence& keys :
         {QKeySequence(Qt::Key_Escape), QKeySequence(QKeySequence::Close)}) {
        const auto* shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, &QWidget::close);
    }
    auto* footer = new QHBoxLayout;
    footer->addStretch();
    footer->addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addLayout(footer);
}

}  // namespace corvane::ui
