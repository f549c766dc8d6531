#include "ui/editor/text_view_window.h"

#include <QFileInfo>
#include <QKeySequence>
#include <QShortcut>
#include <QVBoxLayout>

#include "common/text.h"
#include "ui/editor/numbered_editor.h"
#include "ui/editor/text_encoding.h"
#include "ui/window/accessible_window.h"

namespace corvane::ui {

TextViewWindow::TextViewWindow(QWidget* parent)
    : QWidget(parent, Qt::Window), text_(new NumberedEditor) {
    setObjectName("TextViewWindow");
    MakeAccessibleAsWindow(*this);
    text_->setObjectName("viewedText");
    text_->setAccessibleName(tr("Text of the file"));
    text_->setReadOnly(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    for (const QKeySequence& keys :
         {QKeySequence(Qt::Key_Escape), QKeySequence(QKeySequence::Close)}) {
        const auto* shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, &QWidget::close);
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(text_);
    resize(640, 480);
    constexpr QPoint kBeside(60, 60);
    move(parent->frameGeometry().topLeft() + kBeside);
}

void TextViewWindow::ShowFile(const QString& path, const std::string& bytes, int line) {
    setWindowTitle(tr("%1 - read-only").arg(QFileInfo(path).fileName()));
    text_->setToolTip(path);
    text_->setPlainText(DecodedText(common::WithLf(bytes), EncodingOf(bytes)));
    show();
    raise();
    activateWindow();
    text_->GoToLine(line);
}

}  // namespace corvane::ui
