#include "ui/window/progress_frame.h"

#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include "ui/widgets/qt_text.h"

namespace corvane::ui {

ProgressFrame::ProgressFrame(const QString& caption, QWidget& window)
    : QFrame(&window), status_(new QLabel), line_(new QLabel) {
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    status_->setObjectName("Label1");
    status_->setAccessibleDescription(tr("What is being done"));
    line_->setObjectName("Label2");
    line_->setAccessibleDescription(tr("The line that has been reached"));
    auto* group = new QGroupBox(caption);
    group->setObjectName("Frame1");
    auto* labels = new QVBoxLayout(group);
    labels->addWidget(status_);
    labels->addWidget(line_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(group);
    hide();
    window.installEventFilter(this);
}

void ProgressFrame::ShowProgress(std::string_view status, int line) {
    status_->setText(QtString(status));
    line_->setText(line > 0 ? tr("Line %1").arg(line) : QString());
}

void ProgressFrame::MoveToMiddle() {
    const QSize window = parentWidget()->size();
    QRect frame(QPoint(0, 0), sizeHint().expandedTo({window.width() / 2, 0}));
    frame.moveCenter({window.width() / 2, window.height() / 2});
    setGeometry(frame);
}

void ProgressFrame::showEvent(QShowEvent* event) {
    MoveToMiddle();
    raise();
    QFrame::showEvent(event);
}

bool ProgressFrame::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && isVisible()) {
        MoveToMiddle();
    }
    return QFrame::eventFilter(watched, event);
}

}  // namespace corvane::ui
