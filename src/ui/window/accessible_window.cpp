#include "ui/window/accessible_window.h"

#include <QAccessibleWidget>

namespace corvane::ui {

namespace {

constexpr const char* kWindowMark = "isAccessibleAsWindow";
constexpr const char* kValueMark = "isAccessibleAsValue";

class AccessibleValue final : public QAccessibleWidget {
  public:
    explicit AccessibleValue(QLabel& label)
        : QAccessibleWidget(&label, QAccessible::StaticText), label_(&label) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? label_->text() : QAccessibleWidget::text(kind);
    }

  private:
    QLabel* label_;
};

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
    if (auto* label = qobject_cast<QLabel*>(object);
        label && object->property(kValueMark).toBool()) {
        return new AccessibleValue(*label);
    }
    auto* widget = qobject_cast<QWidget*>(object);
    return widget != nullptr && object->property(kWindowMark).toBool()
               ? new QAccessibleWidget(widget, QAccessible::Window)
               : nullptr;
}

}  // namespace

void MakeAccessibleAsWindow(QWidget& window) {
    window.setProperty(kWindowMark, true);
    QAccessible::installFactory(MakeInterface);  // once is enough, more do no harm
}

void MakeAccessibleAsValue(QLabel& label) {
    label.setProperty(kValueMark, true);
    QAccessible::installFactory(MakeInterface);
}

}  // namespace corvane::ui
