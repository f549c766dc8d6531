#include "ui/common/modal_dialog.h"

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

}  // namespace

int RunModal(QDialog& dialog, QWidget* window) {
    const PutOffClose putOffClose(window);
    return dialog.exec();
}

}  // namespace corvane::ui
