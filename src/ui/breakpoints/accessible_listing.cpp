#include "ui/breakpoints/accessible_listing.h"

#include <QAccessibleWidget>

#include "ui/breakpoints/listing_row_button.h"
#include "ui/breakpoints/listing_view.h"

namespace corvane::ui {

namespace {

class AccessibleRow final : public QAccessibleWidget {
  public:
    explicit AccessibleRow(ListingRowButton& row)
        : QAccessibleWidget(&row, QAccessible::ListItem), row_(&row) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = row_->isCheckable();
        state.checked = row_->isChecked();
        return state;
    }

    QStringList actionNames() const override {
        return row_->isCheckable() ? QStringList{toggleAction()} + QAccessibleWidget::actionNames()
                                   : QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        if (name == toggleAction()) {
            // The click may show a message, for whose end the caller need not wait.
            QMetaObject::invokeMethod(row_, &QAbstractButton::click, Qt::QueuedConnection);
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

  private:
    ListingRowButton* row_;
};

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
    if (auto* row = qobject_cast<ListingRowButton*>(object)) {
        return new AccessibleRow(*row);
    }
    if (auto* listing = qobject_cast<ListingView*>(object)) {
        return new QAccessibleWidget(listing, QAccessible::List);
    }
    return nullptr;
}

}  // namespace

void InstallAccessibleListing() {
    QAccessible::installFactory(MakeInterface);
}

}  // namespace corvane::ui
