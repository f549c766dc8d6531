#include "ui/window/modal_dialog.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>

namespace corvane::ui {

namespace {

class PutOffClose final : public QObject {
  public:
    explicit PutOffClose(QWidget* window) : window_(window) {
        if (window_ != nullptr && window_->testAttribute(Qt::WA_DeleteOnClose)) {
            window_->installEventFilter(this);
        }
    }
    ~PutOffClose() override {
        if (isClosing_ && window_ != nullptr) {
            // Queued, because whoever showed the dialog still works in the window.
            QMetaObject::invokeMethod(window_, &QWidget::close, Qt::QueuedConnection);
        }
    }
    PutOffClose(const PutOffClose&) = delete;
    PutOffClose& operator=(const PutOffClose&) = delete;

  protected:
    bool eventFilter(QObject* /*window*/, QEvent* event) override {
        if (event->type() != QEvent::Close) {
            return false;
        }
        isClosing_ = true;
        event->ignore();
        return true;
    }

  private:
    QPointer<QWidget> window_;
    bool isClosing_ = false;
};

// Not by its attribute to be deleted, which closing takes away, nor only because it is hidden,
// which it is before it is shown for the first time, too.
bool IsClosed(const QWidget& window) {
    return window.windowHandle() != nullptr && !window.isVisible();
}

bool IsKeptOnTop(const QWidget& window) {
    return window.isVisible() && window.windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}

// Keeps the dialog above every window of the application. Window managers keep it above its own
// window only, and a window that is kept on top is above both.
class InFront final : public QObject {
  public:
    explicit InFront(QDialog& dialog) : dialog_(&dialog) {
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (IsKeptOnTop(*window)) {
                dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
            }
        }
        qApp->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::WindowActivate && object != dialog_ &&
            QApplication::activeModalWidget() == dialog_ && object->isWidgetType()) {
            dialog_->raise();
        }
        return false;
    }

  private:
    QDialog* dialog_;
};

}  // namespace

int RunModal(QDialog& dialog, QWidget* window) {
    if (window != nullptr && IsClosed(*window)) {
        return QDialog::Rejected;  // it was closed before its command came to ask
    }
    const PutOffClose putOffClose(window);
    const InFront inFront(dialog);
    return dialog.exec();
}

}  // namespace corvane::ui
