#include "ui/common/accessible_window.h"

#include <QAccessibleWidget>

namespace corvane::ui {

namespace {

constexpr const char* kMark = "isAccessibleAsWindow";

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    return widget != nullptr && widget->property(kMark).toBool()
               ? new QAccessibleWidget(widget, QAccessible::Window)
               : nullptr;
}

}  // namespace

void MakeAccessibleAsWindow(QWidget& window) {
    window.setProperty(kMark, true);
    QAccessible::installFactory(MakeInterface);  // once is enough, more do no harm
}

}  // namespace corvane::ui
